#include "data/ado/Variant.h"

#include "data/Failure.h"
#include "data/ado/Dispatch.h"

#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace TradeForms {

static_assert(sizeof(VARIANT) == sizeof(Variant) && alignof(VARIANT) <= alignof(Variant));

namespace {

/// Numbers in texts have a decimal point in every language of the workstation.
constexpr LCID plainLanguage = LOCALE_INVARIANT;

/// The system functions take a pointer that is not const, but only read.
VARIANT* source(const Variant& value)
{
    return const_cast<VARIANT*>(value.Raw());
}

void requireConverted(HRESULT result)
{
    if (result == DISP_E_OVERFLOW)
        throw OverflowFailure();
    if (FAILED(result))
        throw TypeMismatchFailure();
}

} // namespace

Variant::Variant()
{
    VariantInit(Raw());
}

Variant::Variant(bool value) : Variant()
{
    V_VT(Raw()) = VT_BOOL;
    V_BOOL(Raw()) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(qint16 value) : Variant()
{
    V_VT(Raw()) = VT_I2;
    V_I2(Raw()) = value;
}

Variant::Variant(qint32 value) : Variant()
{
    V_VT(Raw()) = VT_I4;
    V_I4(Raw()) = value;
}

Variant::Variant(double value) : Variant()
{
    V_VT(Raw()) = VT_R8;
    V_R8(Raw()) = value;
}

Variant::Variant(const QString& value) : Variant()
{
    V_VT(Raw()) = VT_BSTR;
    V_BSTR(Raw()) =
        SysAllocStringLen(reinterpret_cast<const OLECHAR*>(value.utf16()), UINT(value.size()));
}

Variant::Variant(const Dispatch& value) : Variant()
{
    V_VT(Raw()) = VT_DISPATCH;
    V_DISPATCH(Raw()) = value.Raw();
    if (value.Raw())
        value.Raw()->AddRef();
}

Variant::~Variant()
{
    VariantClear(Raw());
}

Variant::Variant(const Variant& other) : Variant()
{
    requireConverted(VariantCopy(Raw(), source(other)));
}

Variant::Variant(Variant&& other) noexcept : Variant()
{
    std::swap(bytes_, other.bytes_);
}

Variant& Variant::operator=(Variant other) noexcept
{
    std::swap(bytes_, other.bytes_);
    return *this;
}

Variant Variant::Missing()
{
    Variant missing;
    V_VT(missing.Raw()) = VT_ERROR;
    V_ERROR(missing.Raw()) = DISP_E_PARAMNOTFOUND;
    return missing;
}

Variant Variant::ReferenceTo(Variant& target)
{
    Variant reference;
    const VARTYPE type = V_VT(target.Raw());
    if (type == VT_EMPTY) {
        V_VT(reference.Raw()) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(reference.Raw()) = target.Raw();
    } else {
        V_VT(reference.Raw()) = VARTYPE(VT_BYREF | type);
        V_BYREF(reference.Raw()) = &V_BYREF(target.Raw());
    }
    return reference;
}

bool Variant::IsNothing() const
{
    const VARTYPE type = V_VT(Raw());
    return type == VT_EMPTY || type == VT_NULL ||
           (type == VT_ERROR && V_ERROR(Raw()) == DISP_E_PARAMNOTFOUND);
}

Variant Variant::converted(unsigned short type) const
{
    Variant result;
    requireConverted(VariantChangeTypeEx(result.Raw(), source(*this), plainLanguage, 0, type));
    return result;
}

bool Variant::ToBool() const
{
    const Variant value = converted(VT_BOOL);
    return V_BOOL(value.Raw()) != VARIANT_FALSE;
}

qint16 Variant::ToInt16() const
{
    const Variant value = converted(VT_I2);
    return V_I2(value.Raw());
}

qint32 Variant::ToInt32() const
{
    const Variant value = converted(VT_I4);
    return V_I4(value.Raw());
}

double Variant::ToDouble() const
{
    const Variant value = converted(VT_R8);
    return V_R8(value.Raw());
}

QString Variant::ToString() const
{
    const Variant value = converted(VT_BSTR);
    const BSTR text = V_BSTR(value.Raw());
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text), SysStringLen(text));
}

Dispatch Variant::ToDispatch() const
{
    const Variant value = converted(VT_DISPATCH);
    return Dispatch(V_DISPATCH(value.Raw()));
}

} // namespace TradeForms
