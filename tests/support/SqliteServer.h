#pragma once

#include "data/odbc/Server.h"

namespace tests {

/// The database server of the tests: a company file behind SQLite's ODBC driver. A program linked
/// with this treats every database whose driver calls it "sqlite" as such a server.
class SqliteServer : public TradeForms::Server {
public:
    SqliteServer();

    QStringList Settings() const override;
    QString VersionQuery() const override;
    bool IsSystemTable(const QString& table) const override;
    QString TakeLock() const override;
    QString SetSavepoint() const override;
    QStringList ReleaseSavepoint() const override;
    QStringList RollbackToSavepoint() const override;
    bool IsTransactionOpen(TradeForms::OdbcLink& link) const override;
    bool IsLockError(int number) const override;
    bool TypesExpressions() const override { return false; }
    void RequireOneStatement(const std::vector<TradeForms::Token>& tokens) const override;
    Condition Equals(const TradeForms::ServerColumn& column) const override;
    Condition IsExactly(const TradeForms::ServerColumn& column) const override;
    QString UpdateStatement(const QString& table, const QString& settings, const QString& where,
                            bool isSingleRow) const override;
    QString DeleteStatement(const QString& table, const QString& where,
                            bool isSingleRow) const override;
    Insertion InsertStatement(const QString& table, const QString& columns, const QString& values,
                              const QStringList& returned) const override;
};

} // namespace tests
