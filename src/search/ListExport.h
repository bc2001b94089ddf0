#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <functional>

// Lists on their way out of the program: to the clipboard and into files.

namespace TradeForms {

struct ExportColumn {
    QString Title;
    int Width = 100; ///< pixels at 100 %
};

/// A list as it is shown, with the values behind its texts.
struct ExportList {
    QString Name; ///< what the list is called
    QList<ExportColumn> Columns;
    int Rows = 0;
    std::function<QVariant(int row, int column)> Value; ///< for files
    std::function<QString(int row, int column)> Text;   ///< for the clipboard
};

/// Hears how many rows are written, and says whether to go on.
using ExportProgress = std::function<bool(int rows)>;

/// A row as text, its cells parted by tabs. A tab or a line break within a cell becomes a blank,
/// so that the cells stay where they belong.
QString CopiedRow(const ExportList& list, int row);
/// The whole list so, with its titles in the first line; null where the progress said stop.
QString CopiedList(const ExportList& list, const ExportProgress& goesOn);

// Both write under another name first: a file that was there before stays whole until the new one
// is, and where writing fails or is stopped, nothing is left. They return false where the progress
// said stop, and raise Failure with words for the user where the file cannot be written.

/// Comma-separated values in UTF-8 with a byte-order mark, quoted as RFC 4180 says. A text that a
/// spreadsheet would take for a formula gets an apostrophe in front; a number stays one. Dates
/// are written YYYY-MM-DD, which every spreadsheet reads alike.
bool ExportCsv(const ExportList& list, const QString& file, const ExportProgress& goesOn);

/// Whether this program was built with the library that writes spreadsheets.
bool CanExportXlsx();
/// A spreadsheet that runs right to left, with the titles fixed above it and a filter on them.
/// Numbers and dates are real ones, texts are texts whatever they look like.
bool ExportXlsx(const ExportList& list, const QString& file, const ExportProgress& goesOn);

} // namespace TradeForms
