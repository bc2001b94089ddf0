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

/// A read-only field beside a code, filled from the found row and cleared if no row is found or
/// when the user types.
struct LookupName {
    UTxt* Field;
    const char* Column;
};

/// The properties in which code fields differ.
struct LookupDeclaration {
    Txt& Code;
    QList<LookupName> Names;         ///< the code counts as known while the first one is not empty
    JeweledButton* Button = nullptr; ///< the "..." button; null if there is none

    const SearchDeclaration& Dialog;
    const char* ParaIn = nullptr;               ///< name of the dialog's input; null if it has none
    std::function<QVariant()> ParaInValue = {}; ///< called just before the dialog is shown
    const char* ParaOut = nullptr; ///< name of the dialog's output that is put into Code

    /// Called before the statement is run, if the code is not empty. It may show a notice but
    /// cannot cancel.
    std::function<void()> OnAsk = {};
    std::function<Statement()> Find; ///< returns the statement that selects the code's row
    /// Called after a row was found, and after none was found, to fill or clear further controls.
    std::function<void(const Recordset& row)> OnFound = {};
    std::function<void()> OnMissed = {};
    bool MissEmptiesCode = false;

    /// Leaving the field empty opens the list.
    bool EmptyBringsList = false;
    /// A code whose name is shown is not looked up again when the user leaves the field.
    bool TrustsName = false;
    /// Typing in the field marks the voucher as edited.
    bool ChangeMarksEdited = true;
    /// A found code marks the voucher as edited; MissMarksEdited: so does one that is not found.
    bool FoundMarksEdited = true;
    bool MissMarksEdited = false;
    /// Called when the user types, with whether the code was known before. To clear editable fields
    /// that depend on the code, such as the rate beside a part, which are not in Names.
    std::function<void(bool wasKnown)> OnTyped = {};
    enum class Casing { AsTyped, Proper, Upper } OnLeaving = Casing::AsTyped;

    /// Return the control to focus after a code was found; null keeps the focus. Called after the
    /// lookup.
    std::function<Control*()> NextAfterF1 = {};
    std::function<Control*()> NextAfterButton = {};

    /// Moves the focus to the same control after F1 and after the button. Returns *this.
    LookupDeclaration& To(Control& next);
};

/// The behaviour of a code field: looks up the name of a typed code, and opens the search dialog if
/// the code is unknown or the user asks for the list.
class LookupCode {
public:
    enum class Mode {
        Check = 1, ///< check the code that is in the field
        F1 = 2,    ///< open the list, by F1
        Button = 3 ///< open the list, by the button or after a failed check
    };

    LookupCode(VoucherForm& form, LookupDeclaration declaration);
    LookupCode(const LookupCode&) = delete;
    LookupCode& operator=(const LookupCode&) = delete;

    /// Returns whether the code was found. An exception is shown to the user and counts as not
    /// found.
    bool Lookup(Mode mode);

    /// Handles F1 in the field: opens the list, then moves to the next field.
    void PressF1();

    Txt& Code() const { return declaration_.Code; }
    /// The "..." button, or null.
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
