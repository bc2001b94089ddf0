#pragma once

#include "controls/Pieces.h"
#include "data/Statement.h"

#include <QList>
#include <QVariant>

#include <functional>

namespace TradeForms {

class Recordset;
class VoucherForm;
struct SearchDeclaration;

/// A read-only field beside a code: a found row fills it, a miss and the user's typing empty it.
struct LookupName {
    UTxt* Field;
    const char* Column;
};

/// What tells one code field from another.
struct LookupDeclaration {
    Txt& Code;
    QList<LookupName> Names;         ///< the first one tells whether the code is known
    JeweledButton* Button = nullptr; ///< "..."; null on a field without one

    const SearchDeclaration& Dialog;
    const char* ParaIn = nullptr;               ///< the dialog's input, if it has one
    std::function<QVariant()> ParaInValue = {}; ///< its value at the moment of showing
    const char* ParaOut = nullptr;              ///< the dialog's output that goes into Code

    /// Runs before the statement, where there is a code: a notice, which refuses nothing.
    std::function<void()> OnAsk = {};
    std::function<Statement()> Find; ///< selects the code's row
    /// What else a found row fills, and what else a miss empties.
    std::function<void(const Recordset& row)> OnFound = {};
    std::function<void()> OnMissed = {};
    bool MissEmptiesCode = false;

    /// Leaving the field empty brings up the list.
    bool EmptyBringsList = false;
    /// A code whose name is there is not looked up again when the field is left.
    bool TrustsName = false;
    /// Typing in the field marks the voucher as edited.
    bool ChangeMarksEdited = true;
    /// A found code marks the voucher as edited; a miss does where this is set.
    bool FoundMarksEdited = true;
    bool MissMarksEdited = false;
    /// What else the user's typing empties; told whether the name was there till now. A field that
    /// stays open to the user, such as the rate beside a part, is emptied here and is no name.
    std::function<void(bool wasKnown)> OnTyped = {};
    enum class Casing { AsTyped, Proper, Upper } OnLeaving = Casing::AsTyped;

    /// Where the focus goes on; null stays. Asked when the code has been found.
    std::function<Control*()> NextAfterF1 = {};
    std::function<Control*()> NextAfterButton = {};

    /// The same next field by key and by button.
    LookupDeclaration& To(Control& next);
};

/// A code field: turns a typed code into a name, and brings up the search dialog where the code
/// is unknown or the user asks for the list.
class LookupCode {
public:
    enum class Mode {
        Check = 1, ///< the code now in the field
        F1 = 2,    ///< the list, by key
        Button = 3 ///< the list, by button or after a failed check
    };

    LookupCode(VoucherForm& form, LookupDeclaration declaration);
    LookupCode(const LookupCode&) = delete;
    LookupCode& operator=(const LookupCode&) = delete;

    /// True where the code was found. A failure is shown and counts as not found.
    bool Lookup(Mode mode);

    /// F1 in the field: the list, then on to the next field.
    void PressF1();

    Txt& Code() const { return declaration_.Code; }
    /// Null on a field without one.
    JeweledButton* Button() const { return declaration_.Button; }

private:
    bool isKnown() const;
    void emptyNames();
    bool lookup(Mode mode);
    bool choose();
    void changed();
    void validate(bool& cancel);
    void left();
    void clicked();

    VoucherForm& form_;
    LookupDeclaration declaration_;
};

} // namespace TradeForms
