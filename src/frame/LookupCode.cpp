#include "frame/LookupCode.h"

#include "controls/Buttons.h"
#include "controls/MsgBox.h"
#include "controls/Txt.h"
#include "data/Connection.h"
#include "data/Numbers.h"
#include "data/Recordset.h"
#include "frame/VoucherForm.h"
#include "host/HostContext.h"
#include "search/SearchDialog.h"

namespace TradeForms {

LookupCode::LookupCode(VoucherForm& form, LookupDeclaration description)
    : form_(form), declaration_(std::move(description))
{
    declaration_.Name.SetDisplayOnly(true);
    declaration_.Button.SetTabStop(false);
    // Asking for the list would otherwise bring it up twice: once to check the field that is
    // left, once for the button.
    declaration_.Button.SparesValidationOf = &declaration_.Code;

    declaration_.Code.OnChange += [this] { changed(); };
    declaration_.Code.OnValidate += [this](bool& cancel) { validate(cancel); };
    if (declaration_.OnLeaving != LookupDeclaration::Casing::AsTyped)
        declaration_.Code.OnLostFocus += [this] { left(); };
    declaration_.Button.OnClick += [this] { clicked(); };
    form_.AddLookup(*this);
}

bool LookupCode::Lookup(Mode mode)
{
    try {
        return lookup(mode);
    } catch (const std::exception& failure) {
        ShowError(&form_, failure);
        return false;
    }
}

bool LookupCode::choose()
{
    SearchDialog& dialog = SearchDialog::Shared(declaration_.Dialog);
    if (declaration_.ParaIn)
        dialog.SetParaIn(declaration_.ParaIn, declaration_.ParaInValue ? declaration_.ParaInValue()
                                                                       : QVariant(QString()));
    dialog.Show(&form_);
    const QString chosen = dialog.ParaOut(declaration_.ParaOut).toString();
    if (chosen.isEmpty())
        return false;
    declaration_.Code.SetText(chosen);
    return true;
}

bool LookupCode::lookup(Mode mode)
{
    if (mode != Mode::Check && !choose())
        return false;
    if (declaration_.Code.Text().isEmpty())
        return false;
    const Recordset row = HostContext::Database()->Execute(declaration_.Find());
    const bool found = row.RecordCount() > 0;
    if (found) {
        declaration_.Name.SetText(TextOf(row.Value(declaration_.NameColumn)));
        if (declaration_.OnFound)
            declaration_.OnFound(row);
    } else {
        if (declaration_.MissEmptiesCode)
            declaration_.Code.SetText(QString());
        declaration_.Name.SetText(QString());
        if (declaration_.OnMissed)
            declaration_.OnMissed();
    }
    if (found ? declaration_.FoundMarksEdited : declaration_.MissMarksEdited)
        form_.MarkEdited();
    return found;
}

void LookupCode::changed()
{
    if (!declaration_.Code.IsVisible() || !form_.IsActive(declaration_.Code))
        return;
    if (!declaration_.Name.Text().isEmpty())
        declaration_.Name.SetText(QString());
    if (declaration_.ChangeMarksEdited)
        form_.MarkEdited();
}

void LookupCode::validate(bool& cancel)
{
    if (!form_.IsActive(declaration_.Code))
        return;
    if (!declaration_.EmptyBringsList && declaration_.Code.Text().trimmed().isEmpty())
        return;
    if (declaration_.TrustsName && !declaration_.Name.Text().isEmpty())
        return;
    cancel = !Lookup(Mode::Check) && !Lookup(Mode::Button);
}

void LookupCode::left()
{
    const QString text = declaration_.Code.Text();
    declaration_.Code.SetText(declaration_.OnLeaving == LookupDeclaration::Casing::Proper
                                  ? ProperCase(text)
                                  : UpperCase(text));
}

void LookupCode::clicked()
{
    if (!Lookup(Mode::Button))
        form_.SetFocus(declaration_.Code);
    else if (Control* next =
                 declaration_.NextAfterButton ? declaration_.NextAfterButton() : nullptr)
        form_.SetFocus(*next);
}

void LookupCode::PressF1()
{
    if (!Lookup(Mode::F1))
        return;
    if (Control* next = declaration_.NextAfterF1 ? declaration_.NextAfterF1() : nullptr)
        form_.SetFocus(*next);
}

} // namespace TradeForms
