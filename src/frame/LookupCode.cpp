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

LookupCode::LookupCode(VoucherForm& form, LookupDescription description)
    : form_(form), is_(std::move(description))
{
    is_.Name.SetDisplayOnly(true);
    is_.Button.SetTabStop(false);
    // Asking for the list would otherwise bring it up twice: once to check the field that is
    // left, once for the button.
    is_.Button.SparesValidationOf = &is_.Code;

    is_.Code.OnChange = [this] { changed(); };
    is_.Code.OnValidate = [this](bool& cancel) { validate(cancel); };
    if (is_.OnLeaving != LookupDescription::Casing::AsTyped)
        is_.Code.OnLostFocus = [this] { left(); };
    is_.Button.OnClick = [this] { clicked(); };
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
    SearchDialog& dialog = SearchDialog::Shared(is_.Dialog);
    if (is_.ParaIn)
        dialog.SetParaIn(is_.ParaIn, is_.ParaInValue ? is_.ParaInValue() : QVariant(QString()));
    dialog.Show(&form_);
    const QString chosen = dialog.ParaOut(is_.ParaOut).toString();
    if (chosen.isEmpty())
        return false;
    is_.Code.SetText(chosen);
    return true;
}

bool LookupCode::lookup(Mode mode)
{
    if (mode != Mode::Check && !choose())
        return false;
    if (is_.Code.Text().isEmpty())
        return false;
    const Recordset row = HostContext::Database()->Execute(is_.Find());
    const bool found = row.RecordCount() > 0;
    if (found) {
        is_.Name.SetText(TextOf(row.Value(is_.NameColumn)));
        if (is_.OnFound)
            is_.OnFound(row);
    } else {
        if (is_.MissEmptiesCode)
            is_.Code.SetText(QString());
        is_.Name.SetText(QString());
        if (is_.OnMissed)
            is_.OnMissed();
    }
    if (found ? is_.FoundMarksEdited : is_.MissMarksEdited)
        form_.MarkEdited();
    return found;
}

void LookupCode::changed()
{
    if (!is_.Code.IsVisible() || !form_.IsActive(is_.Code))
        return;
    if (!is_.Name.Text().isEmpty())
        is_.Name.SetText(QString());
    if (is_.ChangeMarksEdited)
        form_.MarkEdited();
}

void LookupCode::validate(bool& cancel)
{
    if (!form_.IsActive(is_.Code))
        return;
    if (!is_.EmptyBringsList && is_.Code.Text().trimmed().isEmpty())
        return;
    if (is_.TrustsName && !is_.Name.Text().isEmpty())
        return;
    cancel = !Lookup(Mode::Check) && !Lookup(Mode::Button);
}

void LookupCode::left()
{
    const QString text = is_.Code.Text();
    is_.Code.SetText(is_.OnLeaving == LookupDescription::Casing::Proper ? ProperCase(text)
                                                                        : UpperCase(text));
}

void LookupCode::clicked()
{
    if (!Lookup(Mode::Button))
        form_.SetFocus(is_.Code);
    else if (Control* next = is_.NextAfterButton ? is_.NextAfterButton() : nullptr)
        form_.SetFocus(*next);
}

void LookupCode::PressF1()
{
    if (!Lookup(Mode::F1))
        return;
    if (Control* next = is_.NextAfterF1 ? is_.NextAfterF1() : nullptr)
        form_.SetFocus(*next);
}

} // namespace TradeForms
