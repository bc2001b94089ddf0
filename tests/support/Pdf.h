#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace tests {

/// What pdftotext reads in a file or in a document's bytes; each page ends with \f. Letters are
/// those of the words, however the font joins them.
QString TextOfPdf(const QString& file);
QString TextOfPdf(const QByteArray& pdf);
/// The first page of a file as it is printed, in grey.
QImage PictureOfPdf(const QString& file, int dotsPerInch);
/// What pdfinfo tells under a name, "Page size".
QString PdfInfo(const QString& file, const QString& name);

} // namespace tests
