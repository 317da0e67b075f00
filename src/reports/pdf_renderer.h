#pragma once

#include <QString>

class cPageDocument;

// Writes the finished document as a PDF file, one page of the file for each page of
// the document, on the document's sheet. Returns false when the file can not be
// written.
bool WritePdf(const cPageDocument &document, const QString &fileName);
