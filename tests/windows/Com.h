#pragma once

#include "TradeFormsClass.h"

#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <string>
#include <utility>
#include <vector>

namespace windows_host {

template <class Interface> using Ptr = Microsoft::WRL::ComPtr<Interface>;

/// A value as callers of automation objects pass it.
class Value {
public:
    Value() { VariantInit(&variant_); }
    Value(const wchar_t* text) : Value()
    {
        V_VT(&variant_) = VT_BSTR;
        V_BSTR(&variant_) = SysAllocString(text);
    }
    Value(const std::wstring& text) : Value(text.c_str()) {}
    Value(bool flag) : Value()
    {
        V_VT(&variant_) = VT_BOOL;
        V_BOOL(&variant_) = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Value(short number) : Value()
    {
        V_VT(&variant_) = VT_I2;
        V_I2(&variant_) = number;
    }
    Value(int number) : Value()
    {
        V_VT(&variant_) = VT_I4;
        V_I4(&variant_) = number;
    }
    Value(IDispatch* object) : Value()
    {
        V_VT(&variant_) = VT_DISPATCH;
        V_DISPATCH(&variant_) = object;
        if (object)
            object->AddRef();
    }
    Value(const Value& other) : Value()
    {
        VariantCopy(&variant_, const_cast<VARIANT*>(&other.variant_));
    }
    Value(Value&& other) noexcept : Value() { std::swap(variant_, other.variant_); }
    Value& operator=(Value other) noexcept
    {
        std::swap(variant_, other.variant_);
        return *this;
    }
    ~Value() { VariantClear(&variant_); }

    static Value Missing()
    {
        Value value;
        V_VT(&value.variant_) = VT_ERROR;
        V_ERROR(&value.variant_) = DISP_E_PARAMNOTFOUND;
        return value;
    }
    /// By reference, in the type that the target has.
    static Value ByRef(Value& target)
    {
        Value value;
        V_VT(&value.variant_) = VARTYPE(VT_BYREF | V_VT(&target.variant_));
        V_BYREF(&value.variant_) = &V_BYREF(&target.variant_);
        return value;
    }
    /// As a reference to a variant.
    static Value ByVariantRef(Value& target)
    {
        Value value;
        V_VT(&value.variant_) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&value.variant_) = &target.variant_;
        return value;
    }

    VARIANT* operator&() { return &variant_; }
    VARTYPE Type() const { return V_VT(&variant_); }
    bool IsNull() const { return Type() == VT_NULL || Type() == VT_EMPTY; }
    /// As text, whatever it is; "null" for none.
    std::wstring Text() const;
    IDispatch* Object() const { return Type() == VT_DISPATCH ? V_DISPATCH(&variant_) : nullptr; }

private:
    VARIANT variant_;
};

/// What came of a late-bound call.
struct Outcome {
    HRESULT Result = S_OK;
    Value Answer;
    HRESULT Code = S_OK; ///< of a failure of the object's own
    std::wstring Source;
    std::wstring Description;
    UINT WrongArgument = UINT(-1);
};

/// Calls a member by its name. The arguments stand in their order; named ones follow the others.
Outcome Call(IDispatch* object, const wchar_t* member, std::vector<Value> arguments = {},
             std::vector<std::pair<const wchar_t*, Value>> named = {},
             WORD flags = DISPATCH_METHOD);
/// A property's value; fails the test where there is none.
Value Get(IDispatch* object, const wchar_t* member, std::vector<Value> arguments = {});

/// The class as a host creates it.
Ptr<_Forms> CreateForms();
/// The text of the thread's error object, which is taken from it.
std::wstring TakeErrorText();

/// COM on this thread for as long as it lives.
struct Apartment {
    explicit Apartment(DWORD kind = COINIT_APARTMENTTHREADED) { CoInitializeEx(nullptr, kind); }
    ~Apartment() { CoUninitialize(); }
};

} // namespace windows_host
