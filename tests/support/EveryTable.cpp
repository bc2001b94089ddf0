#include "support/EveryTable.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <algorithm>

namespace {

constexpr int firstKey = 1001;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString quoted(const QString& value)
{
    QString doubled = value;
    return u'\'' + doubled.replace(u'\'', QLatin1String("''")) + u'\'';
}

QString ordinaryText(int number)
{
    static const QStringList texts{
        text("محمد اسلم ولد محمد اکرم"),
        text("O'Hara said \"no\"; drop table Areas --"),
        text("two\nlines\tand a tab"),
        text("blanks at the end  "),
        text(""),
        text("ɐ 𝄞 ﷺ"),
        QString(200, u'ق'),
    };
    return texts[number % texts.size()];
}

QString number(int at)
{
    static const QStringList numbers{text("0.1"),     text("-1234.5678"), text("9999999999.9999"),
                                     text("0.0001"),  text("0"),          text("185000"),
                                     text("2500.25"), text("1e3")};
    return numbers[at % numbers.size()];
}

/// Returns an SQL literal for a column of this type.
QString valueFor(const QString& column, const QString& type, bool isKey, int row, int place)
{
    const int key = firstKey + row;
    if (column.compare(text("InsCustomerID"), Qt::CaseInsensitive) == 0)
        return quoted(text("Kot %1").arg(key));
    if (type == text("BIT"))
        return QString::number((row + place) % 2);
    if (type == text("DATE"))
        return quoted(QDate(2024, 2, 29).addDays(row).toString(Qt::ISODate));
    if (type == text("DATETIME"))
        return quoted(text("2026-11-20 23:59:%1").arg(row % 60, 2, 10, QLatin1Char('0')));
    if (type == text("INTEGER"))
        return QString::number(isKey ? key : (row * 37 + place) * (place % 2 ? 1 : -1));
    if (type == text("NUMERIC"))
        return number(row + place);
    return quoted(isKey || column == text("UserName") ? text("K%1").arg(key)
                                                      : ordinaryText(row + place));
}

} // namespace

QStringList TablesOf(const TestCompany& company)
{
    QStringList tables;
    for (const QVariantList& row :
         company.Rows("select name from sqlite_schema where type = 'table' and name not like "
                      "'sqlite%' and name <> 'StockLevels' order by name collate nocase"))
        tables.append(row.first().toString());
    return tables;
}

void AddHostTables(const TestCompany& company)
{
    company.Run("alter table Users add UserName TEXT COLLATE CI;"
                "alter table Users add Administrator BIT not null default 0;"
                "create unique index UsersByName on Users (UserName);"
                "create table UserRights (UserNo INTEGER not null, ScreenKey TEXT COLLATE CI not "
                "null, CanModify BIT not null default 0, primary key (UserNo, ScreenKey));"
                "create table CompanyInfo (NameUrdu TEXT, LogoFile TEXT)");
}

void FillEveryTable(const TestCompany& company, int rows)
{
    company.Run("begin");
    for (const QString& table : TablesOf(company)) {
        const auto columns = company.Rows(
            text("select name, type, pk, \"notnull\" from pragma_table_info('%1')").arg(table));
        for (int row = 0; row < rows; ++row) {
            QStringList values;
            for (int place = 0; place < columns.size(); ++place) {
                const QVariantList& column = columns[place];
                const bool isKey = column[2].toInt() != 0;
                const bool mayBeNull = !isKey && column[3].toInt() == 0;
                values.append(
                    mayBeNull && (row + place) % 5 == 4 && place > 0
                        ? text("null")
                        : valueFor(column[0].toString(), column[1].toString(), isKey, row, place));
            }
            company.Run(text("insert into %1 values (%2)").arg(table, values.join(u',')));
        }
    }
    company.Run("commit");
}

std::vector<std::string> ContentsOf(const QString& file)
{
    sqlite3* handle = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    const auto lines = [handle](const QString& sql) {
        std::vector<std::string> found;
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(handle, sql.toUtf8().constData(), -1, &statement, nullptr) !=
            SQLITE_OK)
            ADD_FAILURE() << sqlite3_errmsg(handle) << " in " << sql.toStdString();
        while (sqlite3_step(statement) == SQLITE_ROW)
            found.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)),
                               std::size_t(sqlite3_column_bytes(statement, 0)));
        sqlite3_finalize(statement);
        return found;
    };
    std::vector<std::string> contents;
    for (const std::string& table :
         lines(text("select name from sqlite_schema where type = "
                    "'table' and name not in ('sqlite_sequence', 'StockLevels') "
                    "order by name"))) {
        const QString name = QString::fromStdString(table);
        QStringList quotes;
        for (const std::string& column :
             lines(text("select name from pragma_table_info('%1')").arg(name)))
            quotes.append(text("quote(\"%1\")").arg(QString::fromStdString(column)));
        std::vector<std::string> rows =
            lines(text("select %1 from \"%2\"").arg(quotes.join(text("||','||")), name));
        std::ranges::sort(rows);
        for (const std::string& row : rows)
            contents.push_back(table + ": " + row);
    }
    sqlite3_close(handle);
    return contents;
}
