#include "search/ListExport.h"

#include "data/Numbers.h"
#include "search/ExportFile.h"

#include <QDateTime>

#include <algorithm>

namespace TradeForms {

namespace {

constexpr qsizetype chunk = 256 * 1024;

bool isText(const QVariant& value)
{
    return value.userType() == QMetaType::QString;
}

QString csvText(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime: {
        const QDateTime moment = value.toDateTime();
        return moment.time() == QTime(0, 0)
                   ? moment.date().toString(Qt::ISODate)
                   : moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    }
    default:
        return TextOf(value);
    }
}

/// Whether a spreadsheet would evaluate the text as a formula.
bool looksLikeFormula(const QString& text)
{
    return !text.isEmpty() && QStringLiteral("=+-@\t\r").contains(text.front());
}

QByteArray csvCell(const QVariant& value)
{
    QString text = csvText(value);
    if (isText(value) && looksLikeFormula(text))
        text.prepend(u'\'');
    QByteArray bytes = text.toUtf8();
    const auto needsQuotes = [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; };
    if (std::any_of(bytes.cbegin(), bytes.cend(), needsQuotes)) {
        bytes.replace('"', "\"\"");
        bytes = '"' + bytes + '"';
    }
    return bytes;
}

QString copiedCell(QString text)
{
    for (const QChar separator : {u'\t', u'\r', u'\n'})
        text.replace(separator, u' ');
    return text;
}

} // namespace

QString CopiedRow(const ExportList& list, int row)
{
    QStringList cells;
    for (int column = 0; column < list.Columns.size(); ++column)
        cells.append(copiedCell(list.Text(row, column)));
    return cells.join(u'\t');
}

QString CopiedList(const ExportList& list, const ExportProgress& goesOn)
{
    QStringList titles;
    for (const ExportColumn& column : list.Columns)
        titles.append(copiedCell(column.Title));
    QString text = titles.join(u'\t') + u'\n';
    for (int row = 0; row < list.Rows; ++row) {
        if (!goesOn(row))
            return QString();
        text += CopiedRow(list, row) + u'\n';
    }
    return text;
}

bool ExportCsv(const ExportList& list, const QString& file, const ExportProgress& goesOn)
{
    ExportFile target(file);
    QByteArray bytes("\xEF\xBB\xBF");
    const auto addLine = [&](const auto& cell) {
        for (int column = 0; column < list.Columns.size(); ++column) {
            if (column > 0)
                bytes += ',';
            bytes += csvCell(cell(column));
        }
        bytes += "\r\n";
    };
    addLine([&](int column) { return QVariant(list.Columns[column].Title); });
    for (int row = 0; row < list.Rows; ++row) {
        if (!goesOn(row))
            return false;
        addLine([&](int column) { return list.Value(row, column); });
        if (bytes.size() >= chunk) {
            target.Write(bytes);
            bytes.clear();
        }
    }
    target.Write(bytes);
    target.Commit();
    return true;
}

} // namespace TradeForms
