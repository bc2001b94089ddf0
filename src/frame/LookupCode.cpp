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

LookupDeclaration& LookupDeclaration::To(Control& next)
{
    NextAfterF1 = NextAfterButton = [&next] { return &next; };
    return *this;
}

LookupCode::LookupCode(VoucherForm& form, LookupDeclaration declaration)
    : form_(form), declaration_(std::move(declaration))
{
    for (const LookupName& name : declaration_.Names)
        name.Field->SetDisplayOnly(true);
    Txt& code = declaration_.Code;
    code.OnChange += [this] { changed(); };
    code.OnValidate += [this](bool& cancel) { validate(cancel); };
    if (declaration_.OnLeaving != LookupDeclaration::Casing::AsTyped)
        code.OnLostFocus += [this] { left(); };
    if (JeweledButton* button = declaration_.Button) {
        button->SetTabStop(false);
        // Otherwise a click would open the list twice: once for the validation of the field being
        // left, once for the button.
        button->SparesValidationOf = &code;
        button->OnClick += [this] { clicked(); };
    }
    form_.AddLookup(*this);
}

bool LookupCode::isKnown() const
{
    return !declaration_.Names.isEmpty() && !declaration_.Names.first().Field->Text().isEmpty();
}

void LookupCode::emptyNames()
{
    for (const LookupName& name : declaration_.Names)
        name.Field->SetText(QString());
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
    if (declaration_.OnAsk)
        declaration_.OnAsk();
    const Recordset row = HostContext::Database()->Execute(declaration_.Find());
    const bool found = row.RecordCount() > 0;
    if (found) {
        for (const LookupName& name : declaration_.Names)
            name.Field->SetText(TextOf(row.Value(name.Column)));
        if (declaration_.OnFound)
            declaration_.OnFound(row);
    } else {
        if (declaration_.MissEmptiesCode)
            declaration_.Code.SetText(QString());
        emptyNames();
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
    const bool wasKnown = isKnown();
    if (wasKnown)
        emptyNames();
    if (declaration_.OnTyped)
        declaration_.OnTyped(wasKnown);
    if (declaration_.ChangeMarksEdited)
        form_.MarkEdited();
}

void LookupCode::validate(bool& cancel)
{
    if (!form_.IsActive(declaration_.Code))
        return;
    if (!declaration_.EmptyBringsList && declaration_.Code.Text().trimmed().isEmpty())
        return;
    if (declaration_.TrustsName && isKnown())
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
