#include "entry/com/CallArguments.h"

#include <oleauto.h>

#include <optional>

namespace TradeForms {

namespace {

/// For each declared argument, its index in the caller's array.
using Places = std::vector<std::optional<UINT>>;

HRESULT placesOf(const DISPPARAMS& given, Places& places, UINT& wrong)
{
    if (given.cArgs > places.size() || given.cNamedArgs > given.cArgs)
        return DISP_E_BADPARAMCOUNT;
    // Named arguments come first, then the positional ones in reverse order.
    const UINT byPlace = given.cArgs - given.cNamedArgs;
    for (UINT i = 0; i < byPlace; ++i)
        places[i] = given.cArgs - 1 - i;
    for (UINT i = 0; i < given.cNamedArgs; ++i) {
        const DISPID name = given.rgdispidNamedArgs[i];
        if (name < 0 || std::size_t(name) >= places.size() || places[std::size_t(name)]) {
            wrong = i;
            return DISP_E_PARAMNOTFOUND;
        }
        places[std::size_t(name)] = i;
    }
    return S_OK;
}

bool isLeftOut(const VARIANT& value)
{
    return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

/// The value behind any number of references.
HRESULT resolve(const VARIANT& given, VARIANT* value)
{
    constexpr int deepest = 8; // guards against references in a cycle
    const VARIANT* at = &given;
    for (int depth = 0; V_VT(at) == (VT_BYREF | VT_VARIANT); ++depth) {
        at = V_VARIANTREF(at);
        if (!at || depth == deepest)
            return DISP_E_TYPEMISMATCH;
    }
    if ((V_VT(at) & VT_BYREF) && !V_BYREF(at))
        return DISP_E_TYPEMISMATCH;
    if (isLeftOut(*at))
        return DISP_E_PARAMNOTOPTIONAL;
    return VariantCopyInd(value, const_cast<VARIANT*>(at));
}

VARTYPE typeFor(CallArguments::Kind kind, const VARIANT& value)
{
    switch (kind) {
    case CallArguments::Kind::Text:
        return VT_BSTR;
    case CallArguments::Kind::Flag:
        return VT_BOOL;
    case CallArguments::Kind::ObjectOrText:
        return V_VT(&value) == VT_BSTR ? VT_BSTR : VT_DISPATCH;
    case CallArguments::Kind::Object:
        break;
    }
    return VT_DISPATCH;
}

HRESULT read(const VARIANT& given, CallArguments::Kind kind, LCID language, Variant& value)
{
    const HRESULT found = resolve(given, value.Raw());
    if (FAILED(found))
        return found;
    const HRESULT changed =
        VariantChangeTypeEx(value.Raw(), value.Raw(), language, 0, typeFor(kind, *value.Raw()));
    if (SUCCEEDED(changed) || changed == DISP_E_OVERFLOW || changed == E_OUTOFMEMORY)
        return changed;
    return DISP_E_TYPEMISMATCH;
}

} // namespace

HRESULT CallArguments::Read(const DISPPARAMS& given, std::initializer_list<Kind> declared,
                            LCID language, UINT* wrong)
{
    UINT ignored = 0;
    UINT& wrongPlace = wrong ? *wrong : ignored;
    Places places(declared.size());
    if (const HRESULT found = placesOf(given, places, wrongPlace); FAILED(found))
        return found;

    values_.clear();
    auto place = places.cbegin();
    for (const Kind kind : declared) {
        const std::optional<UINT> at = *place++;
        if (!at)
            return given.cNamedArgs > 0 ? DISP_E_PARAMNOTOPTIONAL : DISP_E_BADPARAMCOUNT;
        Variant value;
        if (const HRESULT result = read(given.rgvarg[*at], kind, language, value); FAILED(result)) {
            wrongPlace = *at;
            return result;
        }
        values_.push_back(std::move(value));
    }
    return S_OK;
}

bool CallArguments::IsText(std::size_t place) const
{
    return V_VT(values_[place].Raw()) == VT_BSTR;
}

} // namespace TradeForms
