#include "data/ado/Dispatch.h"

#include <windows.h>

#include <oleauto.h>

#include <algorithm>

namespace TradeForms {

namespace {

QString taken(BSTR text)
{
    const QString result = QString::fromWCharArray(text, int(SysStringLen(text)));
    SysFreeString(text);
    return result.trimmed();
}

/// The failure that an object describes, with the system's text where it has none.
DispatchFailure failureOf(EXCEPINFO& told)
{
    if (told.pfnDeferredFillIn)
        told.pfnDeferredFillIn(&told);
    const qint32 number = told.scode != 0 ? qint32(told.scode) : qint32(told.wCode);
    const QString description = taken(told.bstrDescription);
    SysFreeString(told.bstrSource);
    SysFreeString(told.bstrHelpFile);
    return {description.isEmpty() ? qt_error_string(number) : description, number};
}

WORD flagsFor(const Variant& value)
{
    return V_VT(value.Raw()) == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
}

} // namespace

DispatchFailure::DispatchFailure(const QString& description, qint32 number)
    : Failure(description), number_(number)
{
}

DispatchFailure::~DispatchFailure() = default;

Dispatch::Dispatch(IDispatch* object) : object_(object)
{
    if (object_)
        object_->AddRef();
}

Dispatch::~Dispatch()
{
    if (object_)
        object_->Release();
}

Dispatch::Dispatch(const Dispatch& other) : Dispatch(other.object_)
{
    numbers_ = other.numbers_;
}

Dispatch::Dispatch(Dispatch&& other) noexcept
    : object_(std::exchange(other.object_, nullptr)), numbers_(std::move(other.numbers_))
{
}

Dispatch& Dispatch::operator=(Dispatch other) noexcept
{
    std::swap(object_, other.object_);
    std::swap(numbers_, other.numbers_);
    return *this;
}

void Dispatch::Set(const char* member, Variant value) const
{
    invoke(member, Kind::Set, {std::move(value)});
}

qint32 Dispatch::numberOf(const char* member) const
{
    const auto known = numbers_.find(member);
    if (known != numbers_.end())
        return known->second;
    if (!object_)
        throw DispatchFailure(QStringLiteral("Object variable not set."), E_POINTER);
    std::wstring name = QString::fromLatin1(member).toStdWString();
    LPOLESTR names = name.data();
    DISPID number = DISPID_UNKNOWN;
    const HRESULT result =
        object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &number);
    if (result == DISP_E_UNKNOWNNAME)
        throw DispatchFailure(
            QStringLiteral("The object has no member '%1'.").arg(QLatin1String(member)), result);
    if (FAILED(result))
        throw DispatchFailure(qt_error_string(result), result);
    numbers_.emplace(member, number);
    return number;
}

Variant Dispatch::invoke(const char* member, Kind kind, std::vector<Variant> arguments) const
{
    const DISPID number = numberOf(member);
    WORD flags = DISPATCH_METHOD;
    DISPPARAMS parameters{};
    DISPID valueItself = DISPID_PROPERTYPUT;
    if (kind == Kind::Get) {
        // Some objects implement a property as a method.
        flags = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
    } else if (kind == Kind::Set) {
        flags = flagsFor(arguments.front());
        parameters.rgdispidNamedArgs = &valueItself;
        parameters.cNamedArgs = 1;
    }
    // Automation takes arguments in reverse order.
    std::reverse(arguments.begin(), arguments.end());
    parameters.rgvarg = arguments.empty() ? nullptr : arguments.front().Raw();
    parameters.cArgs = UINT(arguments.size());

    Variant result;
    EXCEPINFO told{};
    UINT place = 0;
    const HRESULT outcome =
        object_->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                        kind == Kind::Set ? nullptr : result.Raw(), &told, &place);
    if (outcome == DISP_E_EXCEPTION)
        throw failureOf(told);
    if (FAILED(outcome))
        throw DispatchFailure(qt_error_string(outcome), outcome);
    return result;
}

} // namespace TradeForms
