#include "support/windows/HostConnection.h"

#include "data/Failure.h"
#include "data/ado/Dispatch.h"
#include "support/windows/HostRecordset.h"

#include <oleauto.h>

using namespace TradeForms;

namespace tests {

namespace {

constexpr qint32 statementFailed = qint32(0x80040E14);

/// One entry of the Errors collection.
class Error : public HostObject {
public:
    explicit Error(const ProviderError& error) : error_(error)
    {
        Add(
            L"Description", [this](Arguments) { return Variant(error_.Description); });
        Add(
            L"Number", [](Arguments) { return Variant(statementFailed); });
        Add(L"NativeError", [this](Arguments) { return Variant(qint32(error_.Number)); });
    }

private:
    ProviderError error_;
};

} // namespace

const QString HostConnection::LostReason =
    QStringLiteral("[DBNETLIB][ConnectionWrite (send()).]General network error.");

class HostConnection::Errors : public HostObject {
public:
    explicit Errors(HostConnection& connection) : connection_(connection)
    {
        connection_.AddRef();
        Add(
            L"Count", [this](Arguments) { return Variant(qint32(connection_.errors_.size())); });
        Add(L"Item", [this](Arguments arguments) {
            return Handed(new Error(connection_.errors_.at(V_I4(arguments[0]))));
        });
    }
    ~Errors() override { connection_.Release(); }

private:
    HostConnection& connection_;
};

HostConnection::HostConnection(std::unique_ptr<Engine> company, Provider provider)
    : session_(std::move(company)), provider_(provider)
{
    Add(
        L"Execute", [this](Arguments arguments) { return execute(arguments); });
    Add(
        L"BeginTrans",
        [this](Arguments) {
            return run([this] {
                session_.BeginTrans();
                return Variant(qint32(1));
            });
        });
    Add(
        L"CommitTrans",
        [this](Arguments) {
            return run([this] {
                session_.CommitTrans();
                return Variant();
            });
        });
    Add(
        L"RollbackTrans",
        [this](Arguments) {
            return run([this] {
                session_.RollbackTrans();
                return Variant();
            });
        });
    Add(L"Errors", [this](Arguments) { return Handed(new Errors(*this)); });
}

HostConnection::~HostConnection() = default;

void HostConnection::fail(const QList<ProviderError>& errors)
{
    errors_ = errors;
    throw HostFailure{errors.first().Description, statementFailed};
}

/// Called for every round trip to the server.
void HostConnection::reach()
{
    ++calls_;
    if (isCut_)
        fail({{11, LostReason}});
    if (!next_.isEmpty())
        fail(std::exchange(next_, {}));
}

void HostConnection::countBlock()
{
    if (blocksLeft_ && (*blocksLeft_)-- == 0)
        CutLine();
    if (isCut_)
        fail({{11, LostReason}});
}

Variant HostConnection::run(const std::function<Variant()>& operation)
{
    reach();
    try {
        return operation();
    } catch (const ProviderFailure& failure) {
        fail({{failure.Number(), failure.Description()}});
    }
}

Variant HostConnection::execute(Arguments arguments)
{
    const QString statement = QString::fromWCharArray(V_BSTR(arguments[0]));
    statements_.append(statement);
    return run([&] {
        const ServerSession::Result result = session_.Execute(statement);
        if (arguments.size() > 1 && V_VT(arguments[1]) == (VT_BYREF | VT_VARIANT)) {
            VARIANT* count = V_VARIANTREF(arguments[1]);
            VariantClear(count);
            V_VT(count) = VT_I4;
            V_I4(count) = result.Changed;
        }
        return Handed(new HostRecordset(*this, result.Rows, provider_));
    });
}

} // namespace tests
