#pragma once

#include "data/odbc/Server.h"

namespace TradeForms {

/// A company file behind SQLite's ODBC driver: for trying things out where there is no server.
class SqliteServer : public Server {
public:
    SqliteServer();

    QStringList Settings() const override;
    QString VersionQuery() const override;
    bool IsOwnTable(const QString& table) const override;
    QString TakeLock() const override;
    QString SetMark() const override;
    QStringList ReleaseMark() const override;
    QStringList RollbackToMark() const override;
    bool IsTransactionOpen(OdbcLink& link) const override;
    bool TypesExpressions() const override { return false; }
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
