#include "Com.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace windows_host {

namespace {

std::wstring taken(BSTR text)
{
    const std::wstring result(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return result;
}

} // namespace

std::wstring Value::Text() const
{
    if (IsNull())
        return L"null";
    Value text;
    if (FAILED(VariantChangeTypeEx(&text, const_cast<VARIANT*>(&variant_), LOCALE_INVARIANT,
                                   VARIANT_ALPHABOOL, VT_BSTR)))
        return L"no text";
    return {V_BSTR(&text.variant_), SysStringLen(V_BSTR(&text.variant_))};
}

Outcome Call(IDispatch* object, const wchar_t* member, std::vector<Value> arguments,
             std::vector<std::pair<const wchar_t*, Value>> named, WORD flags)
{
    Outcome outcome;
    std::vector<LPOLESTR> names{const_cast<LPOLESTR>(member)};
    for (const auto& [name, value] : named)
        names.push_back(const_cast<LPOLESTR>(name));
    std::vector<DISPID> numbers(names.size());
    outcome.Result = object->GetIDsOfNames(IID_NULL, names.data(), UINT(names.size()),
                                           LOCALE_USER_DEFAULT, numbers.data());
    if (FAILED(outcome.Result))
        return outcome;

    std::vector<VARIANT> passed;
    for (auto& [name, value] : named)
        passed.push_back(*&value);
    for (auto value = arguments.rbegin(); value != arguments.rend(); ++value)
        passed.push_back(*&*value);
    DISPPARAMS parameters{passed.data(), numbers.data() + 1, UINT(passed.size()),
                          UINT(named.size())};
    EXCEPINFO told{};
    outcome.Result = object->Invoke(numbers[0], IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                    &outcome.Answer, &told, &outcome.WrongArgument);
    outcome.Code = told.scode;
    outcome.Source = taken(told.bstrSource);
    outcome.Description = taken(told.bstrDescription);
    SysFreeString(told.bstrHelpFile);
    return outcome;
}

Value Get(IDispatch* object, const wchar_t* member, std::vector<Value> arguments)
{
    Outcome outcome =
        Call(object, member, std::move(arguments), {}, DISPATCH_PROPERTYGET | DISPATCH_METHOD);
    EXPECT_EQ(outcome.Result, S_OK) << "in " << std::string(member, member + wcslen(member));
    return outcome.Answer;
}

Ptr<_Forms> CreateForms()
{
    Ptr<_Forms> forms;
    const HRESULT created = CoCreateInstance(CLSID_Forms, nullptr, CLSCTX_INPROC_SERVER, IID__Forms,
                                             reinterpret_cast<void**>(forms.GetAddressOf()));
    EXPECT_EQ(created, S_OK);
    return forms;
}

std::wstring TakeErrorText()
{
    Ptr<IErrorInfo> error;
    if (GetErrorInfo(0, error.GetAddressOf()) != S_OK)
        return L"(none)";
    BSTR text = nullptr;
    error->GetDescription(&text);
    return taken(text);
}

} // namespace windows_host
