#include "HostUser.h"

#include <oleauto.h>

#include <iterator>

namespace windows_host {

namespace {

constexpr const wchar_t* kMembers[] = {L"HasRight",        L"UserFlagA",  L"AllowPostedEdit",
                                       L"IsAdministrator", L"UserNumber", L"UserBranchCode"};

std::wstring described(const VARIANT& value)
{
    if (V_VT(&value) == VT_I2)
        return L"I2 " + std::to_wstring(V_I2(&value));
    if (V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND)
        return L"missing";
    return L"of type " + std::to_wstring(V_VT(&value));
}

void answer(VARIANT* result, short flag)
{
    V_VT(result) = VT_BOOL;
    V_BOOL(result) = flag;
}

} // namespace

HRESULT HostUser::QueryInterface(REFIID interfaceId, void** object)
{
    const bool known = interfaceId == IID_IUnknown || interfaceId == IID_IDispatch;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT HostUser::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT HostUser::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers)
{
    for (std::size_t i = 0; i < std::size(kMembers); ++i) {
        if (count == 1 && _wcsicmp(names[0], kMembers[i]) == 0) {
            numbers[0] = DISPID(i);
            return S_OK;
        }
    }
    return DISP_E_UNKNOWNNAME;
}

HRESULT HostUser::Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                         EXCEPINFO* told, UINT*)
{
    switch (number) {
    case 0:
        return hasRight(*parameters, result, told);
    case 1:
        answer(result, VARIANT_FALSE);
        return S_OK;
    case 2:
        answer(result, VARIANT_TRUE);
        return S_OK;
    case 3:
        answer(result, Administrator);
        return S_OK;
    case 4:
        V_VT(result) = VT_I4;
        V_I4(result) = Number;
        return S_OK;
    case 5:
        V_VT(result) = VT_BSTR;
        V_BSTR(result) = SysAllocString(L"0");
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

HRESULT HostUser::hasRight(const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* told)
{
    if (parameters.cArgs < 1 || parameters.cArgs > 3)
        return DISP_E_BADPARAMCOUNT;
    // The last one stands first.
    const VARIANT& key = parameters.rgvarg[parameters.cArgs - 1];
    std::wstring asked = V_VT(&key) == (VT_BYREF | VT_BSTR)
                             ? std::wstring(*V_BSTRREF(&key)) + L" (by reference)"
                             : described(key);
    for (UINT i = parameters.cArgs - 1; i-- > 0;)
        asked += L' ' + described(parameters.rgvarg[i]);
    Asked.push_back(asked);
    if (!FailsWith.empty()) {
        told->scode = E_FAIL;
        told->bstrDescription = SysAllocString(FailsWith.c_str());
        return DISP_E_EXCEPTION;
    }
    answer(result, parameters.cArgs == 3 ? Delete : Modify);
    return S_OK;
}

} // namespace windows_host
