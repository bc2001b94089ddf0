#include "data/QueryPlans.h"

#include <gtest/gtest.h>

#include <QHash>
#include <QSet>

#include <sqlite3.h>

#include <algorithm>

namespace {

constexpr const char* voucherTables[] = {
    "GatePassHeader",
    "GatePassBody",
    "StockInHeader",
    "StockInBody",
    "StockOutHeader",
    "StockOutBody",
    "StockInDetailHeader",
    "StockInDetailBody",
    "InsCustomerHeader",
    "InsCustomerBody",
    "ConvertArea",
    "PreviousBalances",
    "RecoveryHeader",
    "RecoveryBody",
    "ConcessionHeader",
    "ConcessionBody",
    "ReturnHeader",
    "ReturnBody",
    "ReturnProducts",
    "Salaries",
    "FrenchiserSalaryHeader",
    "FrenchiserSalaryBody",
    "WorkShopSalaryHeader",
    "WorkShopSalaryBody",
    "WorkShopPartsHeader",
    "WorkShopPartsBody",
    "PartnershipProfitHeader",
    "PartnershipProfitBody",
};

/// The rows of a statement in SQLite's dialect, as texts.
QList<QStringList> rowsOf(sqlite3* handle, const QByteArray& statement)
{
    sqlite3_stmt* prepared = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(handle, statement.constData(), -1, &prepared, nullptr), SQLITE_OK)
        << sqlite3_errmsg(handle) << " in " << statement.toStdString();
    QList<QStringList> rows;
    while (sqlite3_step(prepared) == SQLITE_ROW) {
        QStringList row;
        for (int column = 0; column < sqlite3_column_count(prepared); ++column)
            row.append(QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(prepared, column))));
        rows.append(row);
    }
    sqlite3_finalize(prepared);
    return rows;
}

/// Whether a step of the plan is a full scan. An automatic index is built by a full scan as well.
bool scansAnything(sqlite3* handle, const QByteArray& statement)
{
    const QStringList plan = PlanOf(handle, statement);
    return std::any_of(plan.begin(), plan.end(), [](const QString& step) {
        return step.startsWith(QStringLiteral("SCAN")) ||
               step.contains(QStringLiteral("AUTOMATIC"));
    });
}

/// Tables by the root pages of the tables and of their indexes.
QHash<QString, QString> tablesByRoot(sqlite3* handle)
{
    QHash<QString, QString> tables;
    for (const QStringList& row : rowsOf(handle, "SELECT rootpage, tbl_name FROM sqlite_master"))
        tables.insert(row[0], row[1]);
    return tables;
}

} // namespace

QStringList ScannedVoucherTables(sqlite3* handle, const QByteArray& statement)
{
    // The plan names tables by their aliases; only the byte code shows their root pages.
    if (!scansAnything(handle, statement))
        return {};
    const QHash<QString, QString> tables = tablesByRoot(handle);
    QHash<QString, QString> cursors;
    QSet<QString> scanned;
    for (const QStringList& operation : rowsOf(handle, "EXPLAIN " + statement)) {
        const QString& code = operation[1];
        const QString& cursor = operation[2];
        if (code == QStringLiteral("OpenRead") || code == QStringLiteral("OpenWrite"))
            cursors.insert(cursor, tables.value(operation[3]));
        else if (code.startsWith(QStringLiteral("Open")))
            cursors.remove(cursor);
        else if (code == QStringLiteral("Rewind") || code == QStringLiteral("Last") ||
                 code == QStringLiteral("Count"))
            scanned.insert(cursors.value(cursor));
    }
    QStringList found;
    for (const char* table : voucherTables)
        if (scanned.contains(QString::fromUtf8(table)))
            found.append(QString::fromUtf8(table));
    return found;
}

QStringList PlanOf(sqlite3* handle, const QByteArray& statement)
{
    QStringList plan;
    for (const QStringList& step : rowsOf(handle, "EXPLAIN QUERY PLAN " + statement))
        plan.append(step[3]);
    return plan;
}

bool ReadsIndexAlone(sqlite3* handle, const QByteArray& statement, const QString& table)
{
    const QStringList plan = PlanOf(handle, statement);
    return std::any_of(plan.begin(), plan.end(), [&](const QString& step) {
        return step.startsWith(QStringLiteral("SCAN %1 USING COVERING INDEX").arg(table));
    });
}

QList<QByteArray> PreparedStatements(sqlite3* handle)
{
    QList<QByteArray> statements;
    for (sqlite3_stmt* statement = sqlite3_next_stmt(handle, nullptr); statement;
         statement = sqlite3_next_stmt(handle, statement))
        statements.append(sqlite3_sql(statement));
    return statements;
}
