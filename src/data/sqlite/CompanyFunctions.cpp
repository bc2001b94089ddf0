#include "data/sqlite/CompanyFunctions.h"

#include "data/Failure.h"
#include "data/Numbers.h"
#include "data/Utf8.h"

#include <QStringList>

namespace TradeForms {

namespace {

// Sums are rounded to four decimals, the scale of amounts on the server, so that the balance of an
// account that is paid off is exactly 0.

constexpr const char* balanceQuery =
    "SELECT round(ifnull(h.TotalAmount, 0)"
    " - (SELECT total(Amount) FROM PreviousBalances WHERE InsCustomerID = h.InsCustomerID)"
    " - (SELECT total(Amount) FROM RecoveryBody WHERE InsCustomerID = h.InsCustomerID)"
    " - (SELECT total(Amount) FROM ConcessionBody WHERE InsCustomerID = h.InsCustomerID)"
    " - (SELECT total(Amount) FROM ReturnBody WHERE InsCustomerID = h.InsCustomerID), 4)"
    " FROM InsCustomerHeader h WHERE h.InsCustomerID = ?1";

constexpr const char* productQuery =
    "SELECT p.ProductName, b.Qty FROM InsCustomerBody b"
    " JOIN Products p ON p.ProductID = b.ProductID"
    " WHERE b.InsCustomerID = ?1 AND p.ProductName IS NOT NULL ORDER BY b.serialno";

// One query for each of the two indexes.
constexpr const char* customerQuery =
    "SELECT InsCustomerID FROM ("
    " SELECT serialno, InsCustomerID FROM InsCustomerBody WHERE EngineNo = ?1"
    " UNION ALL SELECT serialno, InsCustomerID FROM InsCustomerBody WHERE ChasisNo = ?1)"
    " ORDER BY serialno DESC LIMIT 1";

constexpr const char* advanceQuery =
    "SELECT round(sum(Amount)"
    " - (SELECT total(Recloan) FROM Salaries WHERE StaffID = ?1)"
    " - (SELECT total(Recloan) FROM FrenchiserSalaryHeader WHERE StaffID = ?1)"
    " - (SELECT total(Recloan) FROM WorkShopSalaryHeader WHERE StaffID = ?1), 4)"
    " FROM StaffAdvance WHERE StaffID = ?1";

constexpr const char* emptyBalancesStatement = "DELETE FROM InstallmentBalances";

/// A row for each account a.InsCustomerID, with its a.TotalAmount and the movements up to day ?1.
constexpr const char* insertBalances =
    "INSERT INTO InstallmentBalances (InsCustomerID, Balance)"
    " SELECT a.InsCustomerID, round(ifnull(a.TotalAmount, 0)"
    " - (SELECT total(Amount) FROM PreviousBalances"
    " WHERE InsCustomerID = a.InsCustomerID AND PreviousDate <= ?1)"
    " - (SELECT total(Amount) FROM RecoveryBody"
    " WHERE InsCustomerID = a.InsCustomerID AND VoucherDate <= ?1)"
    " - (SELECT total(Amount) FROM ConcessionBody"
    " WHERE InsCustomerID = a.InsCustomerID AND VoucherDate <= ?1)"
    " - (SELECT total(Amount) FROM ReturnBody"
    " WHERE InsCustomerID = a.InsCustomerID AND VoucherDate <= ?1), 4) FROM ";

constexpr const char* accountsOnVouchers =
    "(SELECT v.InsCustomerID, h.TotalAmount FROM"
    " (SELECT DISTINCT b.InsCustomerID FROM RecoveryHeader r"
    " JOIN RecoveryBody b ON b.VoucherID = r.VoucherID"
    " WHERE r.VoucherDate = ?1 AND b.InsCustomerID IS NOT NULL) v"
    " LEFT JOIN InsCustomerHeader h ON h.InsCustomerID = v.InsCustomerID) a";

constexpr const char* accountsOfArea =
    "InsCustomerHeader a WHERE a.AreaCode = ?2 AND a.SaleDate <= ?1"
    " AND (a.ChangeDate IS NULL OR a.ChangeDate <= ?1)";

QDate dateArgument(const QByteArray& text)
{
    const QDate date = DateFromText(ViewOf(text));
    if (!date.isValid())
        throw ProviderFailure(QStringLiteral("'%1' is not a date.").arg(QString::fromUtf8(text)),
                              SQLITE_ERROR);
    return date;
}

void resultCell(sqlite3_context* context, const Cell& cell)
{
    switch (cell.Kind) {
    case Cell::Type::Integer:
        return sqlite3_result_int64(context, cell.Integer);
    case Cell::Type::Real:
        return sqlite3_result_double(context, cell.Real);
    case Cell::Type::Text:
        return ResultText(context, cell.Bytes);
    default:
        return sqlite3_result_null(context);
    }
}

/// Sets the function's result to the first column of the first row; null without a row.
void resultOf(sqlite3_context* context, sqlite3_stmt* statement, std::string_view argument)
{
    const ResetAtEnd reset(statement);
    BindText(statement, 1, argument);
    if (Step(statement))
        resultCell(context, ReadColumn(statement, 0));
}

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

} // namespace

CompanyFunctions::CompanyFunctions(sqlite3* handle) : handle_(handle)
{
    add<&CompanyFunctions::currentBalance>("FunCurrentBalance");
    add<&CompanyFunctions::product>("FunGetProduct");
    add<&CompanyFunctions::customer>("FunGetCustomer");
    add<&CompanyFunctions::currentAdvance>("FunCurrentAdvance");
}

template <void (CompanyFunctions::*Body)(sqlite3_context*, std::string_view)>
void CompanyFunctions::add(const char* name)
{
    const auto body = [](sqlite3_context* context, int, sqlite3_value** values) {
        auto* self = static_cast<CompanyFunctions*>(sqlite3_user_data(context));
        try {
            (self->*Body)(context, ViewOf(values[0]));
        } catch (const Failure& failure) {
            sqlite3_result_error(context, failure.what(), -1);
        }
    };
    if (sqlite3_create_function_v2(handle_, name, 1, SQLITE_UTF8, this, body, nullptr, nullptr,
                                   nullptr) != SQLITE_OK)
        RaiseSqlite(handle_);
}

sqlite3_stmt* CompanyFunctions::prepared(PreparedStatement& statement, const QByteArray& text)
{
    if (!statement)
        statement = Prepare(handle_, text);
    return statement.get();
}

void CompanyFunctions::currentBalance(sqlite3_context* context, std::string_view account)
{
    resultOf(context, prepared(balance_, balanceQuery), account);
}

void CompanyFunctions::product(sqlite3_context* context, std::string_view account)
{
    sqlite3_stmt* lines = prepared(product_, productQuery);
    const ResetAtEnd reset(lines);
    BindText(lines, 1, account);
    QByteArray products;
    while (Step(lines)) {
        const Cell name = ReadColumn(lines, 0);
        const Cell quantity = ReadColumn(lines, 1);
        if (!products.isEmpty())
            products += ", ";
        products.append(name.Bytes.data(), qsizetype(name.Bytes.size()));
        const QVariant count = ValueOf(quantity, ColumnKind::Number);
        if (!count.isNull() && count != QVariant(1.0))
            products += " x" + TextOf(count).toUtf8();
    }
    ResultText(context, ViewOf(products));
}

void CompanyFunctions::customer(sqlite3_context* context, std::string_view number)
{
    if (!isBlank(number))
        resultOf(context, prepared(customer_, customerQuery), number);
}

void CompanyFunctions::currentAdvance(sqlite3_context* context, std::string_view staff)
{
    resultOf(context, prepared(advance_, advanceQuery), staff);
}

void CompanyFunctions::Call(const QByteArray& name, const QList<QByteArray>& arguments)
{
    const auto isCall = [&](const char* procedure, int count) {
        if (qstricmp(name.constData(), procedure) != 0)
            return false;
        if (arguments.size() != count)
            throw ProviderFailure(QStringLiteral("Procedure '%1' takes %2 arguments.")
                                      .arg(QString::fromUtf8(name))
                                      .arg(count),
                                  SQLITE_ERROR);
        return true;
    };
    if (isCall("SPInstallmentBalances", 1))
        installmentBalances(arguments[0]);
    else if (isCall("spRecoveryPrize", 2))
        recoveryPrize(arguments[0], arguments[1]);
    else
        throw ProviderFailure(
            QStringLiteral("There is no procedure '%1'.").arg(QString::fromUtf8(name)),
            SQLITE_ERROR);
}

void CompanyFunctions::emptyBalances()
{
    sqlite3_stmt* statement = prepared(emptyBalances_, emptyBalancesStatement);
    const ResetAtEnd reset(statement);
    Step(statement);
}

void CompanyFunctions::installmentBalances(const QByteArray& date)
{
    const QByteArray day = StoredText(dateArgument(date));
    emptyBalances();
    sqlite3_stmt* statement =
        prepared(voucherBalances_, QByteArray(insertBalances) + accountsOnVouchers);
    const ResetAtEnd reset(statement);
    BindText(statement, 1, ViewOf(day));
    Step(statement);
}

void CompanyFunctions::recoveryPrize(const QByteArray& area, const QByteArray& month)
{
    const QDate day = dateArgument(month);
    // The balances are those at the end of the previous month.
    const QByteArray last = StoredText(QDate(day.year(), day.month(), 1).addDays(-1));
    emptyBalances();
    sqlite3_stmt* statement = prepared(areaBalances_, QByteArray(insertBalances) + accountsOfArea);
    const ResetAtEnd reset(statement);
    BindText(statement, 1, ViewOf(last));
    BindText(statement, 2, ViewOf(area));
    Step(statement);
}

} // namespace TradeForms
