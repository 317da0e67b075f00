#pragma once

#include <QString>

#include <functional>

class QIODevice;

class cPageDocument;

// Writes the finished document as a PDF file, one page of the file for each page of
// the document, on the document's sheet. Returns false when the file can not be
// written.
bool WritePdf(const cPageDocument &document, const QString &fileName);

// Writes the PDF to an open device, asking beforePage (with the page about to be
// drawn, from 1) whether to go on. False when the device fails or the answer was no.
bool WritePdf(const cPageDocument &document, QIODevice &device,
              const std::function<bool(int page)> &beforePage);
