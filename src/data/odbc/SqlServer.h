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
    QStringList BeforeReadTransaction() const override;
    QStringList AfterReadTransaction() const override;
    QString EnableIdentityInsert(const QString& table, const QStringList& columns) const override;
    QString DisableIdentityInsert(const QString& table, const QStringList& columns) const override;
    bool IsSystemTable(const QString& table) const override;
    QString TakeLock() const override;
    QString SetSavepoint() const override;
    QStringList ReleaseSavepoint() const override { return {}; }
    QStringList RollbackToSavepoint() const override;
    bool IsTransactionOpen(OdbcLink& link) const override;
    bool TypesExpressions() const override { return true; }
    void RequireOneStatement(const std::vector<Token>& tokens) const override;
    Condition Equals(const ServerColumn& column) const override;
    Condition IsExactly(const ServerColumn& column) const override;
    QString UpdateStatement(const QString& table, const QString& settings, const QString& where,
                            bool isSingleRow) const override;
    QString DeleteStatement(const QString& table, const QString& where,
                            bool isSingleRow) const override;
    Insertion InsertStatement(const QString& table, const QString& columns, const QString& values,
                              const QStringList& returned) const override;
};

} // namespace TradeForms
