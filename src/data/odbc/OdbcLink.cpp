#include "data/odbc/OdbcLink.h"

#include "data/Failure.h"
#include "data/server/ServerFailure.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace TradeForms {

namespace {

constexpr int maxMessageLength = 4096;

/// A message without the names in brackets that drivers put in front.
QString withoutDriverNames(QString text)
{
    while (text.startsWith(u'[') && text.contains(u']'))
        text = text.sliced(text.indexOf(u']') + 1).trimmed();
    return text.trimmed();
}

} // namespace

OdbcLink::Diagnostics OdbcLink::readDiagnostics(SQLSMALLINT type, SQLHANDLE handle)
{
    Diagnostics diagnostics;
    QStringList texts;
    for (SQLSMALLINT record = 1;; ++record) {
        std::array<SQLWCHAR, SQL_SQLSTATE_SIZE + 1> state{};
        std::array<SQLWCHAR, maxMessageLength> message{};
        SQLINTEGER number = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, record, state.data(), &number,
                                          message.data(), SQLSMALLINT(message.size()), &length)))
            break;
        if (record == 1) {
            diagnostics.State = FromOdbcText(state.data(), SQL_SQLSTATE_SIZE);
            diagnostics.Number = number;
        }
        const QString text = withoutDriverNames(
            FromOdbcText(message.data(), std::min<qsizetype>(length, maxMessageLength - 1)));
        if (!text.isEmpty() && !texts.contains(text))
            texts.append(text);
    }
    diagnostics.Text = texts.isEmpty()
                           ? QStringLiteral("The database reported a failure and gave no "
                                            "reason.")
                           : texts.join(u'\n');
    return diagnostics;
}

QString OdbcLink::textFor(const Diagnostics& diagnostics) const
{
    const bool isInUse = diagnostics.State == QLatin1String("40001") ||
                         (isLockError_ && isLockError_(diagnostics.Number));
    return isInUse ? InUseText(diagnostics.Text) : diagnostics.Text;
}

OdbcLink::OdbcLink(const QString& connectionString) : environment_(SQL_NULL_HANDLE)
{
    SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION,
                  reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    session_ = OdbcSession(environment_.Get());
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLDriverConnectW(session_.Get(), nullptr, OdbcText(connectionString),
                                               SQLSMALLINT(connectionString.size()), nullptr, 0,
                                               &length, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) {
        const Diagnostics diagnostics = readDiagnostics(SQL_HANDLE_DBC, session_.Get());
        throw ProviderFailure(
            QStringLiteral("The database could not be opened: %1").arg(diagnostics.Text),
            diagnostics.Number);
    }
}

OdbcLink::~OdbcLink()
{
    // A session with an open transaction cannot be disconnected.
    SQLEndTran(SQL_HANDLE_DBC, session_.Get(), SQL_ROLLBACK);
    SQLDisconnect(session_.Get());
}

OdbcStatement OdbcLink::NewStatement()
{
    if (isLost_)
        throw ProviderFailure(LostText(QStringLiteral("It was lost before.")));
    OdbcStatement statement(session_.Get());
    if (!statement.Get())
        raise(SQL_HANDLE_DBC, session_.Get());
    return statement;
}

bool OdbcLink::Check(SQLRETURN result, const OdbcStatement& statement)
{
    return check(result, SQL_HANDLE_STMT, statement.Get());
}

bool OdbcLink::check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle)
{
    if (SQL_SUCCEEDED(result))
        return true;
    if (result == SQL_NO_DATA)
        return false;
    raise(type, handle);
}

void OdbcLink::raise(SQLSMALLINT type, SQLHANDLE handle)
{
    const Diagnostics diagnostics = readDiagnostics(type, handle);
    if (diagnostics.State.startsWith(QLatin1String("08")) ||
        diagnostics.State == QLatin1String("HYT01") || isDead())
        isLost_ = true;
    throw ProviderFailure(isLost_ ? LostText(diagnostics.Text) : textFor(diagnostics),
                          diagnostics.Number);
}

bool OdbcLink::isDead()
{
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(session_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead,
                                            SQL_IS_UINTEGER, nullptr)) &&
           dead == SQL_CD_TRUE;
}

void OdbcLink::Run(const QString& statement)
{
    const OdbcStatement handle = NewStatement();
    Check(SQLExecDirectW(handle.Get(), OdbcText(statement), SQLINTEGER(statement.size())), handle);
    Finish(handle);
}

qint64 OdbcLink::ReadNumber(const QString& query)
{
    const OdbcStatement handle = NewStatement();
    Check(SQLExecDirectW(handle.Get(), OdbcText(query), SQLINTEGER(query.size())), handle);
    SQLBIGINT number = 0;
    SQLLEN length = SQL_NULL_DATA;
    if (Check(SQLFetch(handle.Get()), handle))
        Check(SQLGetData(handle.Get(), 1, SQL_C_SBIGINT, &number, sizeof number, &length), handle);
    return length == SQL_NULL_DATA ? 0 : number;
}

void OdbcLink::Finish(const OdbcStatement& statement)
{
    while (Check(SQLMoreResults(statement.Get()), statement)) {
    }
}

void OdbcLink::SetAutocommit(bool isOn)
{
    const SQLULEN value = isOn ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    check(SQLSetConnectAttrW(session_.Get(), SQL_ATTR_AUTOCOMMIT,
                             reinterpret_cast<SQLPOINTER>(value), SQL_IS_UINTEGER),
          SQL_HANDLE_DBC, session_.Get());
}

void OdbcLink::EndTransaction(SQLSMALLINT how)
{
    check(SQLEndTran(SQL_HANDLE_DBC, session_.Get(), how), SQL_HANDLE_DBC, session_.Get());
}

QString OdbcLink::Info(SQLUSMALLINT what)
{
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT bytes = 0;
    check(SQLGetInfoW(session_.Get(), what, text.data(), SQLSMALLINT(sizeof text), &bytes),
          SQL_HANDLE_DBC, session_.Get());
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()));
}

} // namespace TradeForms
