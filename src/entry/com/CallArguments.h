#pragma once

#include "data/ado/Variant.h"

#include <windows.h>

#include <oaidl.h>

#include <initializer_list>
#include <vector>

namespace TradeForms {

/// The arguments of one late-bound call, in the order in which its method declares them. A caller
/// may pass them by value, by reference, as a variant or as a reference to one, by position or by
/// name; the accessors return plain values of the declared kinds.
class CallArguments {
public:
    enum class Kind {
        Text,        ///< a BSTR
        Flag,        ///< a VARIANT_BOOL
        Object,      ///< an IDispatch, which may be null
        ObjectOrText ///< an IDispatch, or a BSTR where it is a text
    };

    /// S_OK, or what Invoke has to return: DISP_E_BADPARAMCOUNT for too many
    /// or too few, DISP_E_PARAMNOTOPTIONAL for one that is left out by its name or as a missing
    /// value, DISP_E_PARAMNOTFOUND for a name that the method does not know or that comes twice,
    /// DISP_E_TYPEMISMATCH and DISP_E_OVERFLOW for a value of another kind. `wrong`, which may be
    /// null, receives the index of that argument in the caller's array.
    HRESULT Read(const DISPPARAMS& given, std::initializer_list<Kind> declared, LCID language,
                 UINT* wrong);

    /// To be called after a successful Read; raise nothing.
    const Variant& At(std::size_t place) const { return values_[place]; }
    bool IsText(std::size_t place) const;

private:
    std::vector<Variant> values_;
};

} // namespace TradeForms
