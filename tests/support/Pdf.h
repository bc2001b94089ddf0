#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace tests {

/// Returns the text that pdftotext reads in a PDF file or in the bytes of one; each page ends with
/// \f. Ligatures are returned as their letters.
QString TextOfPdf(const QString& file);
QString TextOfPdf(const QByteArray& pdf);
/// Returns the first page of a file, rendered in grey.
QImage PictureOfPdf(const QString& file, int dotsPerInch);
/// Returns the value that pdfinfo reports under a name such as "Page size".
QString PdfInfo(const QString& file, const QString& name);

} // namespace tests
