#pragma once

#include "data/odbc/Server.h"

namespace TradeForms {

/// Microsoft's database server, 2019 or later.
class SqlServer : public Server {
public:
    SqlServer();

    QString Schema() const override { return QStringLiteral("dbo"); }
    QStringList Settings() const override;
    QString VersionQuery() const override;
    QStringList BeforeReading() const override;
    QStringList AfterReading() const override;
    QString TakeGivenNumbers(const QString& table, const QStringList& columns) const override;
    QString GiveNumbersAgain(const QString& table, const QStringList& columns) const override;
    bool IsOwnTable(const QString& table) const override;
    QString TakeLock() const override;
    QString SetMark() const override;
    QStringList ReleaseMark() const override { return {}; }
    QStringList RollbackToMark() const override;
    bool IsTransactionOpen(OdbcLink& link) const override;
    bool TypesExpressions() const override { return true; }
    void RequireOneStatement(const std::vector<Token>& tokens) const override;
    Condition Equals(const ServerColumn& column) const override;
    Condition IsExactly(const ServerColumn& column) const override;
    QString UpdateStatement(const QString& table, const QString& settings, const QString& where,
                            bool isOfOneRow) const override;
    QString DeleteStatement(const QString& table, const QString& where,
                            bool isOfOneRow) const override;
    Insertion InsertStatement(const QString& table, const QString& columns, const QString& values,
                              const QStringList& given) const override;
};

} // namespace TradeForms
