#include "data/ado/HostLink.h"

#include "data/ado/HostRows.h"
#include "data/server/ServerFailure.h"
#include "data/server/TransactSql.h"

#include <QStringList>

#include <windows.h>

namespace TradeForms {

namespace {

constexpr qint32 commandIsText = 1;
constexpr qint32 stateClosed = 0;
constexpr qint32 timeOutExpired = qint32(0x80040E31);

/// Whether the object is missing or is no connection at all, which is not a lost connection.
bool isNoConnection(const DispatchFailure& failure)
{
    return failure.Number() == DISP_E_UNKNOWNNAME || failure.Number() == E_POINTER;
}

} // namespace

HostLink::HostLink(const Dispatch& connection) : connection_(connection) {}

/// A statement without rows returns a closed recordset object.
Dispatch HostLink::execute(const QString& statement, qint32& changed) const
{
    Variant count;
    const Variant result =
        connection_.Call("Execute", statement, Variant::ReferenceTo(count), commandIsText);
    changed = count.IsNothing() ? -1 : count.ToInt32();
    if (result.IsNothing())
        return Dispatch();
    const Dispatch rows = result.ToDispatch();
    return rows && rows.Get("State").ToInt32() != stateClosed ? rows : Dispatch();
}

qint32 HostLink::readNumber(const QString& query) const
{
    qint32 changed = 0;
    const Dispatch result = execute(query, changed);
    if (!result)
        return 0;
    HostRows rows(result);
    const auto row = rows.Next();
    return row ? qint32(CellAt(row->data(), 0).Integer) : 0;
}

Dispatch HostLink::Run(const QString& statement, qint32* changed)
{
    qint32 count = -1;
    const Dispatch rows = Guarded([&] { return execute(statement, count); });
    if (changed)
        *changed = count;
    return rows;
}

qint32 HostLink::ReadNumber(const QString& query)
{
    return Guarded([&] { return readNumber(query); });
}

void HostLink::Begin()
{
    Guarded([&] { connection_.Call("BeginTrans"); });
    isOpen_ = true;
}

void HostLink::Commit()
{
    try {
        Guarded([&] { connection_.Call("CommitTrans"); });
    } catch (const ProviderFailure& failure) {
        if (!isLost_)
            throw;
        throw ProviderFailure(LostInCommitText(failure.Description()), failure.Number());
    }
    isOpen_ = false;
}

/// A server rolls back the transaction of a lost session by itself.
void HostLink::Rollback()
{
    try {
        Guarded([&] { connection_.Call("RollbackTrans"); });
    } catch (const ProviderFailure&) {
        if (isOpen_)
            throw;
    }
    isOpen_ = false;
}

bool HostLink::IsWithinTransaction()
{
    return isOpen_ || ReadNumber(TransactSql::CountTransactions()) > 0;
}

/// Returns nothing where the connection is lost. The query reads no table, since that might begin a
/// transaction.
std::optional<qint32> HostLink::countTransactions() const
{
    try {
        return readNumber(TransactSql::CountTransactions());
    } catch (const Failure&) {
        return std::nullopt;
    }
}

/// The Errors collection describes this failure only where it contains the failure's description: a
/// failure of the connection object itself leaves an older collection unchanged.
HostLink::Report HostLink::reportOf(const DispatchFailure& failure) const
{
    Report report{failure.Description(), failure.Number()};
    try {
        const Dispatch errors = connection_.Get("Errors").ToDispatch();
        const qint32 count = errors.Get("Count").ToInt32();
        QStringList texts;
        for (qint32 index = 0; index < count; ++index) {
            const Dispatch error = errors.Get("Item", index).ToDispatch();
            const QString text = error.Get("Description").ToString().trimmed();
            if (!text.isEmpty() && !texts.contains(text))
                texts.append(text);
            const qint32 number = error.Get("NativeError").ToInt32();
            if (text == failure.Description() && number != 0)
                report.Number = number;
        }
        if (texts.contains(failure.Description()))
            report.Text = texts.join(u'\n');
    } catch (const Failure&) {
        // Only the failure itself is reported then.
    }
    return report;
}

void HostLink::raise(const DispatchFailure& failure)
{
    if (isNoConnection(failure))
        throw ProviderFailure(failure.Description(), failure.Number());
    const Report report = reportOf(failure);
    const auto open = countTransactions();
    isLost_ = !open;
    // The server has rolled the transaction back. The connection object has not noticed that, and
    // would run further statements outside of any transaction.
    if (isOpen_ && open.value_or(0) == 0) {
        isOpen_ = false;
        try {
            connection_.Call("RollbackTrans");
        } catch (const DispatchFailure&) {
            // There is no transaction, as expected.
        }
    }
    if (isLost_)
        throw ProviderFailure(LostText(report.Text), report.Number);
    if (IsLockNumber(report.Number) || failure.Number() == timeOutExpired)
        throw ProviderFailure(InUseText(report.Text), report.Number);
    throw ProviderFailure(report.Text, report.Number);
}

} // namespace TradeForms
