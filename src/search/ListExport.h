#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <functional>

// Export of lists to the clipboard and to files.

namespace TradeForms {

struct ExportColumn {
    QString Title;
    int Width = 100; ///< pixels at 100 %
};

/// A list as it is shown, with the values of its cells.
struct ExportList {
    QString Name; ///< English title: name of the file and the sheet
    QList<ExportColumn> Columns;
    int Rows = 0;
    std::function<QVariant(int row, int column)> Value; ///< for files
    std::function<QString(int row, int column)> Text;   ///< for the clipboard
};

/// Takes the number of rows written; returns false to cancel.
using ExportProgress = std::function<bool(int rows)>;

/// A row as tab-separated text. A tab or a line break within a cell becomes a blank.
QString CopiedRow(const ExportList& list, int row);
/// The list as tab-separated text with its titles in the first line; null where the progress
/// cancelled.
QString CopiedList(const ExportList& list, const ExportProgress& goesOn);

// Both write to a temporary file first: an existing file stays as it is until the new one is
// complete, and where writing fails or is cancelled, the temporary file is removed. They return
// false where the progress cancelled, and raise Failure where the file cannot be written.

/// Comma-separated values in UTF-8 with a byte-order mark, quoted as RFC 4180 says. A text that a
/// spreadsheet would take for a formula gets an apostrophe in front; a number stays one. Dates
/// are written YYYY-MM-DD, which every spreadsheet reads alike.
bool ExportCsv(const ExportList& list, const QString& file, const ExportProgress& goesOn);

/// Whether this program was built with the library that writes spreadsheets.
bool CanExportXlsx();
/// A spreadsheet that runs right to left, with the titles fixed above it and a filter on them.
/// Numbers and dates are typed cells; texts are text cells even where they look like a number.
bool ExportXlsx(const ExportList& list, const QString& file, const ExportProgress& goesOn);

} // namespace TradeForms
