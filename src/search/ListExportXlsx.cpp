#include "search/ListExport.h"

#ifdef TRADEFORMS_XLSX

#include "data/Failure.h"
#include "data/Numbers.h"
#include "search/ExportFile.h"

#include <QDateTime>
#include <QFile>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <utility>

namespace TradeForms {

namespace {

constexpr int lastRow = LXW_ROW_MAX - 1;
constexpr double pixelsOfACharacter = 7; ///< the unit of a sheet's column width, in pixels

struct FreeWorkbook {
    void operator()(lxw_workbook* workbook) const { lxw_workbook_free(workbook); }
};
using Workbook = std::unique_ptr<lxw_workbook, FreeWorkbook>;

/// A workbook of one sheet, written row by row into a temporary folder.
class Sheet {
public:
    Sheet(const QString& target, const QString& name) : target_(target)
    {
        if (!scratch_.isValid())
            ExportFile::Fail(target_, scratch_.errorString());
        folder_ = QFile::encodeName(scratch_.path());
        file_ = QFile::encodeName(File());
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        options.tmpdir = folder_.data();
        workbook_.reset(workbook_new_opt(file_.constData(), &options));
        // A sheet's name has at most 31 characters.
        sheet_ = workbook_add_worksheet(workbook_.get(), name.left(31).toUtf8().constData());
        if (!sheet_)
            ExportFile::Fail(target_, QStringLiteral("no sheet could be begun"));
        bold_ = workbook_add_format(workbook_.get());
        format_set_bold(bold_);
        format_set_bottom(bold_, LXW_BORDER_THIN);
        date_ = dateFormat("dd/mm/yyyy");
        moment_ = dateFormat("dd/mm/yyyy hh:mm:ss");
    }

    ~Sheet()
    {
        // The library leaves the temporary file of an abandoned workbook open.
        if (workbook_ && sheet_)
            std::fclose(sheet_->optimize_tmpfile);
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    QString File() const { return scratch_.filePath(QStringLiteral("list.xlsx")); }

    void WriteTitles(const QList<ExportColumn>& columns, int rows)
    {
        const auto last = lxw_col_t(columns.size() - 1);
        worksheet_right_to_left(sheet_);
        worksheet_freeze_panes(sheet_, 1, 0);
        worksheet_autofilter(sheet_, 0, 0, lxw_row_t(rows), last);
        for (lxw_col_t column = 0; column <= last; ++column) {
            worksheet_set_column(sheet_, column, column, columns[column].Width / pixelsOfACharacter,
                                 nullptr);
            writeText(0, column, columns[column].Title, bold_);
        }
    }

    void Write(int row, int column, const QVariant& value)
    {
        const auto at = lxw_row_t(row);
        const auto in = lxw_col_t(column);
        switch (value.userType()) {
        case QMetaType::UnknownType:
            return;
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::Double:
            require(worksheet_write_number(sheet_, at, in, value.toDouble(), nullptr));
            return;
        case QMetaType::QDate:
        case QMetaType::QDateTime:
            writeMoment(at, in, value);
            return;
        default:
            writeText(at, in, TextOf(value), nullptr);
        }
    }

    /// Writes the file. No rows can be added afterwards.
    void Close()
    {
        requireRoom();
        require(workbook_close(workbook_.release()));
    }

private:
    lxw_format* dateFormat(const char* pattern)
    {
        lxw_format* format = workbook_add_format(workbook_.get());
        format_set_num_format(format, pattern);
        return format;
    }

    void writeText(lxw_row_t row, lxw_col_t column, const QString& text, lxw_format* format)
    {
        require(worksheet_write_string(sheet_, row, column, text.toUtf8().constData(), format));
    }

    void writeMoment(lxw_row_t row, lxw_col_t column, const QVariant& value)
    {
        const QDateTime moment = value.toDateTime();
        const QDate day = moment.date();
        if (day.year() < 1900) { // before the first date of a spreadsheet
            writeText(row, column, TextOf(value), nullptr);
            return;
        }
        const QTime time = moment.time();
        lxw_datetime parts{day.year(),  day.month(),   day.day(),
                           time.hour(), time.minute(), double(time.second())};
        require(worksheet_write_datetime(sheet_, row, column, &parts,
                                         time == QTime(0, 0) ? date_ : moment_));
    }

    /// The library does not check whether its temporary files could be written, and would pack a
    /// broken workbook.
    void requireRoom() const
    {
        std::FILE* const rows = sheet_->optimize_tmpfile;
        const bool written = std::fflush(rows) == 0 && std::ferror(rows) == 0;
        // Still to be written: the sheet, and the packed file.
        const qint64 wanted = 2 * qint64(std::ftell(rows));
        // Negative where the system does not report it, as in some containers.
        const qint64 room = QStorageInfo(scratch_.path()).bytesAvailable();
        if (!written || (room >= 0 && room < wanted))
            ExportFile::Fail(target_, QStringLiteral("there is no room for it in the folder of "
                                                     "temporary files, '%1'")
                                          .arg(scratch_.path()));
    }

    void require(lxw_error result) const
    {
        if (result != LXW_NO_ERROR)
            ExportFile::Fail(target_, QString::fromUtf8(lxw_strerror(result)));
    }

    QString target_;
    QTemporaryDir scratch_;
    QByteArray folder_;
    QByteArray file_;
    Workbook workbook_;
    lxw_worksheet* sheet_ = nullptr;
    lxw_format* bold_ = nullptr;
    lxw_format* date_ = nullptr;
    lxw_format* moment_ = nullptr;
};

void copy(const QString& from, ExportFile& to)
{
    QFile file(from);
    if (!file.open(QIODevice::ReadOnly))
        ExportFile::Fail(from, file.errorString());
    while (!file.atEnd()) {
        const QByteArray bytes = file.read(1024 * 1024);
        if (bytes.isEmpty())
            ExportFile::Fail(from, file.errorString());
        to.Write(bytes);
    }
}

} // namespace

bool CanExportXlsx()
{
    return true;
}

bool ExportXlsx(const ExportList& list, const QString& file, const ExportProgress& goesOn)
{
    if (list.Rows > lastRow)
        throw Failure(QStringLiteral("A spreadsheet holds no more than %1 rows and this list has "
                                     "%2. Narrow the list, or save it as CSV.")
                          .arg(lastRow)
                          .arg(list.Rows));
    ExportFile target(file);
    Sheet sheet(file, list.Name);
    sheet.WriteTitles(list.Columns, list.Rows);
    for (int row = 0; row < list.Rows; ++row) {
        if (!goesOn(row))
            return false;
        for (int column = 0; column < list.Columns.size(); ++column)
            sheet.Write(row + 1, column, list.Value(row, column));
    }
    sheet.Close();
    copy(sheet.File(), target);
    target.Commit();
    return true;
}

} // namespace TradeForms

#else

namespace TradeForms {

bool CanExportXlsx()
{
    return false;
}

bool ExportXlsx(const ExportList&, const QString&, const ExportProgress&)
{
    return false;
}

} // namespace TradeForms

#endif
