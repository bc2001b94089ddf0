#pragma once

#include "data/sqlite/Handle.h"

#include <QByteArray>
#include <QDate>
#include <QList>

namespace TradeForms {

/// The functions and procedures that a server has in the company's database, and this engine in the
/// program: balances, products and holders of accounts, and advances of staff.
class CompanyFunctions {
public:
    /// Registers the functions. Raises ProviderFailure.
    explicit CompanyFunctions(sqlite3* handle);
    CompanyFunctions(const CompanyFunctions&) = delete;
    CompanyFunctions& operator=(const CompanyFunctions&) = delete;

    /// Runs a procedure within a transaction of the caller. Raises ProviderFailure, also where
    /// there is no procedure of that name or it takes other arguments.
    void Call(const QByteArray& name, const QList<QByteArray>& arguments);

private:
    /// Prepares a statement at its first use.
    sqlite3_stmt* prepared(PreparedStatement& statement, const QByteArray& text);

    void currentBalance(sqlite3_context* context, std::string_view account);
    void product(sqlite3_context* context, std::string_view account);
    void customer(sqlite3_context* context, std::string_view number);
    void currentAdvance(sqlite3_context* context, std::string_view staff);

    void installmentBalances(const QByteArray& date);
    void recoveryPrize(const QByteArray& area, const QByteArray& month);
    void emptyBalances();

    template <void (CompanyFunctions::*Body)(sqlite3_context*, std::string_view)>
    void add(const char* name);

    sqlite3* handle_;
    PreparedStatement balance_;
    PreparedStatement product_;
    PreparedStatement customer_;
    PreparedStatement advance_;
    PreparedStatement emptyBalances_;
    PreparedStatement voucherBalances_;
    PreparedStatement areaBalances_;
};

} // namespace TradeForms
