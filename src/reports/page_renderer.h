#pragma once

#include <functional>

class cPageDocument;
class QPagedPaintDevice;
class QPainter;

// Draws a finished page document. The device must already be set up for the sheet
// (PreparePagedDevice does that for a device whose origin is the sheet's corner);
// each page of the document becomes one page of the device.
//
// Returns false when the device can not be painted on (a file that can not be
// written, a printer that is not there).
bool PaintDocument(const cPageDocument &document, QPagedPaintDevice &device);

// As above, asking beforePage (with the page about to be drawn, from 1) whether to go
// on; a false answer stops the drawing there and the call returns false, so that a
// long report can be cancelled between pages.
bool PaintDocument(const cPageDocument &document, QPagedPaintDevice &device,
                   const std::function<bool(int page)> &beforePage);

// Gives the device the document's sheet and orientation with no margins, so that
// the painter's origin is the corner of the sheet.
void PreparePagedDevice(const cPageDocument &document, QPagedPaintDevice &device);

// Draws one page (numbered from 1) with a painter whose origin is the corner of the
// sheet, at dotsPerInch device units to the inch. Used for every destination, and
// for pictures of a page.
void PaintPage(const cPageDocument &document, int page, QPainter &painter, double dotsPerInch);
