#include "frame/VoucherForm.h"

#include "controls/Utf8.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Numbers.h"
#include "data/Recordset.h"
#include "frame/Authorisation.h"
#include "host/HostContext.h"
#include "search/SearchDialog.h"

#include <QBoxLayout>

#include <algorithm>

namespace TradeForms {

namespace {

const QString& alert()
{
    static const QString title = QStringLiteral("Alert");
    return title;
}

/// Another user stored the number of a new voucher after the race rule was checked and before the
/// lock was taken.
class NumberTaken : public Failure {
public:
    using Failure::Failure;
};

} // namespace

Grid& VoucherGrid(QWidget* form, const char* name)
{
    auto& grid = *new Grid(utf8(name), form);
    grid.setLayoutDirection(Qt::LeftToRight);
    return grid;
}

VoucherForm::VoucherForm(VoucherDeclaration declaration)
    : Title(*new TitleStrip(declaration.Title, this)),
      BtnSave(
          BarButton(this, "BtnSave", {"محفوظ", "Save"}, "Ctrl+S", JeweledButton::Kind::Primary)),
      BtnOpen(BarButton(this, "BtnOpen", {"کھولیں", "Open"}, "Ctrl+O")),
      BtnDelete(BarButton(this, "BtnDelete", {"حذف", declaration.DeleteWord}, "Ctrl+R")),
      BtnClear(BarButton(this, "BtnClear", {"صاف", "Clear"}, "Ctrl+W")),
      BtnClose(BarButton(this, "BtnClose", {"بند", "Close"}, "Ctrl+Q")),
      BtnPrint(BarButton(this, "BtnPrint", {"پرنٹ", "Print"}, "Ctrl+P")),
      declaration_(std::move(declaration)), ctrlKeys_{{Qt::Key_S, &BtnSave},
                                                      {Qt::Key_W, &BtnClear},
                                                      {Qt::Key_Q, &BtnClose},
                                                      {Qt::Key_O, &BtnOpen},
                                                      {Qt::Key_R, &BtnDelete}}
{
    if (declaration_.Prints)
        ctrlKeys_.append({Qt::Key_P, &BtnPrint});
    if (!declaration_.CtrlKeys)
        ctrlKeys_.clear();
    // These must work while a field fails its validation, so that the user can always discard or
    // leave the voucher.
    BtnClear.CausesValidation = false;
    BtnClose.CausesValidation = false;
    BtnPrint.SetVisible(declaration_.Prints);
    BtnSave.SetEnabled(false);
    BtnDelete.SetEnabled(false);
    BtnPrint.SetEnabled(false);
    attach();
}

VoucherForm::~VoucherForm() = default;

void VoucherForm::attach()
{
    BtnSave.OnClick += [this] { runWriting([this] { SaveVoucher(); }, declaration_.SaveTail); };
    BtnDelete.OnClick +=
        [this] { runWriting([this] { DeleteVoucher(); }, declaration_.DeleteTail); };
    BtnOpen.OnClick += [this] { OpenVoucher(); };
    BtnClear.OnClick += [this] { SetFormState(State::New); };
    BtnPrint.OnClick += [this] { PrintVoucher(); };
    BtnClose.OnClick += [this] { Unload(); };
    Title.ImgExit().OnClick += [this] { Unload(); };
}

void VoucherForm::UseDetail(DetailGrid& detail)
{
    detail_ = &detail;
    UseRows(detail.Rows());
}

void VoucherForm::UseFocus(Control* newVoucher, Control* openedVoucher)
{
    newFocus_ = newVoucher;
    openedFocus_ = openedVoucher;
}

JeweledButton& VoucherForm::MoreButton(const char* name, const Caption& caption, Qt::Key key)
{
    const char shortcut[] = {'C', 't', 'r', 'l', '+', char(key), '\0'};
    JeweledButton& button = BarButton(this, name, caption, shortcut);
    moreButtons_.append(&button);
    ctrlKeys_.append({key, &button});
    return button;
}

void VoucherForm::Compose(const QList<QWidget*>& parts)
{
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(1, 1, 1, 1);
    all->setSpacing(0);
    all->addWidget(&Title);
    for (QWidget* part : parts) {
        const bool takesRoom = part->sizePolicy().verticalPolicy() == QSizePolicy::Expanding;
        all->addWidget(part, takesRoom ? 1 : 0);
        tabOrder_ += InLayoutOrder(*part);
    }
    QList<JeweledButton*> work{&BtnSave, &BtnOpen};
    work += moreButtons_;
    if (declaration_.Prints)
        work.append(&BtnPrint);
    work.append(&BtnDelete);
    Strip* bar = ButtonBar(work, {&BtnClear, &BtnClose});
    all->addWidget(bar);
    tabOrder_ += InLayoutOrder(*bar);
    SetTabOrderOf(tabOrder_);
}

void VoucherForm::TabAfter(Control& control, const Control& before)
{
    tabOrder_.removeOne(&control);
    tabOrder_.insert(tabOrder_.indexOf(&before) + 1, &control);
    SetTabOrderOf(tabOrder_);
}

void VoucherForm::FormLoad()
{
    SetWindowCaption(utf8(declaration_.Title.English));
    if (date_ && declaration_.DateStays)
        date_->SetValue(QDate::currentDate());
    Guard([this] { SetFormState(State::New); });
    if (HostContext::ServerMode) {
        BtnSave.SetVisible(false);
        BtnDelete.SetVisible(false);
    }
}

// ---- The three states

void VoucherForm::SetFormState(State state)
{
    switch (state) {
    case State::New:
        enterNew();
        break;
    case State::Edited:
        enterEdited();
        break;
    case State::Opened:
        enterOpened();
        break;
    }
    // Set last: clearing the fields of an opened voucher passes through state Edited.
    state_ = state;
    showState();
}

void VoucherForm::enterNew()
{
    ClearVoucher();
    if (declaration_.NextId)
        id_->SetText(QString::number(NextVoucherId()));
    if (date_ && !declaration_.DateStays)
        date_->SetValue(QDate::currentDate());
    LoadDetail();
    if (detail_) {
        skipTakenNumbers();
        detail_->StartAdding();
    }
    openIdentity(true);
    if (newFocus_)
        ResetFocus(*newFocus_);
    BtnOpen.SetEnabled(true);
    BtnDelete.SetEnabled(false);
    BtnSave.SetEnabled(false);
    BtnPrint.SetEnabled(false);
    BtnClear.SetEnabled(true);
    IsNew = true;
}

/// Another user may have stored a voucher under the new number after it was read and before the
/// rows were loaded; these rows belong to that voucher, so the next number is taken. If the number
/// stays the same, the rows are those of no stored voucher, and are kept.
void VoucherForm::skipTakenNumbers()
{
    while (declaration_.NextId && detail_->CountRows() > 0) {
        const QString next = QString::number(NextVoucherId());
        if (next == id_->Text())
            return;
        id_->SetText(next);
        detail_->EmptyGrid();
        LoadDetail();
    }
}

void VoucherForm::enterEdited()
{
    BtnOpen.SetEnabled(false);
    BtnDelete.SetEnabled(false);
    BtnPrint.SetEnabled(false);
    BtnSave.SetEnabled(true);
}

void VoucherForm::enterOpened()
{
    if (detail_)
        detail_->StartAdding();
    if (openedFocus_)
        ResetFocus(*openedFocus_);
    openIdentity(false);
    BtnOpen.SetEnabled(true);
    BtnDelete.SetEnabled(true);
    BtnClear.SetEnabled(true);
    BtnPrint.SetEnabled(true);
    BtnSave.SetEnabled(false);
    IsNew = false;
}

void VoucherForm::openIdentity(bool open)
{
    for (Control* control : std::as_const(identity_))
        control->SetEnabled(open);
}

void VoucherForm::showState()
{
    switch (state_) {
    case State::New:
        Title.SetState(Caption{"نیا", "New"});
        break;
    case State::Edited:
        Title.SetState(Caption{"ترمیم شدہ", "Edited"});
        break;
    case State::Opened:
        Title.SetState(Caption{"کھلا ہوا", "Opened"});
        break;
    }
}

void VoucherForm::MarkEdited()
{
    if (!IsDirty())
        SetFormState(State::Edited);
}

// ---- The voucher on the screen

QVariant VoucherForm::VoucherId() const
{
    return Val(id_->Text());
}

Connection& VoucherForm::Database()
{
    return *HostContext::Database();
}

Statement VoucherForm::WithKey(const char* text) const
{
    return Statement(text).Bind("id", VoucherId());
}

/// Clears the fields of the entry row directly, not through ClearEntryRow: what that does in
/// addition, such as counting a number up, applies only after a row was entered.
void VoucherForm::ClearVoucher()
{
    for (Control* control : Controls())
        if (auto* txt = dynamic_cast<Txt*>(control))
            txt->SetText(QString());
    if (detail_)
        detail_->EmptyGrid();
}

qint32 VoucherForm::NextVoucherId()
{
    const Recordset largest = Database().Execute(declaration_.NextId);
    return ToInt32(largest.ValueAt(0, 0).toDouble() + (declaration_.NextIdAddsOne ? 1 : 0));
}

bool VoucherForm::ChooseVoucher()
{
    SearchDialog& vouchers = SearchDialog::Shared(*declaration_.Vouchers);
    vouchers.Show(this);
    const int id = vouchers.ParaOut(declaration_.ChosenVoucher).toInt();
    if (id == 0)
        return false;
    id_->SetText(QString::number(id));
    return true;
}

void VoucherForm::OpenVoucher()
{
    if (ChooseVoucher())
        LoadVoucher();
}

void VoucherForm::LoadHeader()
{
    const Recordset stored = Database().Execute(WithKey(declaration_.Load));
    if (!stored.Bof())
        header_.Load(stored);
}

void VoucherForm::LoadVoucher()
{
    LoadHeader();
    LoadDetail();
    SetFormState(State::Opened);
}

// ---- The rows

void VoucherForm::LoadDetail()
{
    if (detail_)
        detail_->LoadDetail();
}

bool VoucherForm::AddDetailRow()
{
    return detail_ && detail_->AddDetailRow();
}

void VoucherForm::ClearEntryRow()
{
    if (detail_)
        detail_->ClearEntryRow();
}

void VoucherForm::ShowGridRow()
{
    if (detail_)
        detail_->ShowGridRow();
}

void VoucherForm::RemoveRow()
{
    if (detail_)
        detail_->RemoveRow();
}

// ---- Saving and deleting

void VoucherForm::resumePainting()
{
    if (rows_)
        rows_->SetRedraw(true);
}

void VoucherForm::runWriting(const std::function<void()>& step, Rollback tail)
{
    try {
        step();
        return;
    } catch (const NumberTaken&) {
        resumePainting();
        Database().RollbackTrans();
        giveNewNumber();
    } catch (const std::exception& failure) {
        resumePainting();
        const Connection* connection = HostContext::objCN.get();
        const bool reported =
            connection && connection->Errors().Count() > 0 && connection->InTransaction();
        if (tail == Rollback::Always || (tail == Rollback::IfErrors && reported)) {
            try {
                Database().RollbackTrans();
            } catch (const std::exception& rollbackFailure) {
                Form::HandlerFailed(rollbackFailure);
                return;
            }
        }
        ShowError(this, failure);
    }
}

bool VoucherForm::PassesPostedRule()
{
    return Authorisation::PassesPostedRule(this, utf8(declaration_.ScreenKey),
                                           WithKey(declaration_.IsPosted));
}

bool VoucherForm::PassesModifyRule()
{
    return Authorisation::MayModify(this, utf8(declaration_.ScreenKey), declaration_.NotModify);
}

bool VoucherForm::PassesDateWindow()
{
    return Authorisation::PassesDateWindow(this, date_->Value());
}

bool VoucherForm::Refuse(Control& focus, const Message& message)
{
    MsgBox(this, message);
    SetFocus(focus);
    return false;
}

bool VoucherForm::IsFilled(Txt& field, const Message& message)
{
    return !field.Text().trimmed().isEmpty() || Refuse(field, message);
}

bool VoucherForm::IsFilled(Txt& field, const QString& message)
{
    return IsFilled(field, {message, MsgIcon::Exclamation, utf8(declaration_.Title.English)});
}

bool VoucherForm::PassesRaceRule()
{
    if (!IsNew || Database().Execute(WithKey(declaration_.Race)).RecordCount() == 0)
        return true;
    giveNewNumber();
    return false;
}

void VoucherForm::giveNewNumber()
{
    Inform(this, declaration_.IdTaken, MsgIcon::Stop, alert());
    if (declaration_.NextId)
        id_->SetText(QString::number(NextVoucherId()));
}

bool VoucherForm::HasRows()
{
    return detail_->CountRows() > 0 || Refuse(detail_->CodeControl(), declaration_.NoRows);
}

void VoucherForm::BeginTrans()
{
    Database().BeginTrans();
}

Recordset VoucherForm::OpenHeader()
{
    Recordset header;
    header.Open(WithKey(declaration_.Header), HostContext::Database(), CursorType::Static,
                LockType::Pessimistic);
    if (IsNew && !header.Bof() && declaration_.Race)
        throw NumberTaken(declaration_.IdTaken);
    return header;
}

void VoucherForm::WriteHeader(Recordset& header)
{
    const bool isNew = header.Bof();
    if (isNew)
        header.AddNew();
    header_.Save(header, isNew);
    header.Update();
}

void VoucherForm::SaveHeader()
{
    Recordset header = OpenHeader();
    WriteHeader(header);
    header.Close();
}

void VoucherForm::SaveBody()
{
    detail_->SaveBody();
}

void VoucherForm::CommitTrans()
{
    Database().CommitTrans();
}

void VoucherForm::AskToPrint()
{
    if (Ask(this, declaration_.PrintQuestion, alert())) {
        // The voucher is stored already, so a failure to print must not look like a failed save.
        Guard([this] { PrintVoucher(); });
    }
}

void VoucherForm::PrintVoucher() {}

bool VoucherForm::AsksToDelete()
{
    return Ask(this, QStringLiteral("Do you want to remove this record?"),
               QStringLiteral("Confirmation"));
}

bool VoucherForm::PassesDeleteRule()
{
    return Authorisation::MayDelete(this, utf8(declaration_.ScreenKey), declaration_.NotDelete);
}

void VoucherForm::EraseVoucher()
{
    BeginTrans();
    for (const char* statement : std::as_const(declaration_.Delete))
        Database().Execute(WithKey(statement));
    CommitTrans();
    // The screen is cleared only after the rows have been deleted from the table.
    SetFormState(State::New);
}

void VoucherForm::DeleteVoucher()
{
    if (AsksToDelete() && PassesDeleteRule())
        EraseVoucher();
}

void VoucherForm::Unguarded(const std::function<void()>& step)
{
    try {
        step();
    } catch (const std::exception& failure) {
        Form::HandlerFailed(failure);
    }
}

void VoucherForm::ConfirmClose(bool& cancel)
{
    if (IsDirty())
        cancel = MsgBox(this, declaration_.CloseQuestion) != MsgAnswer::Yes;
    else if (detail_ && detail_->BodyRecordset.IsOpen())
        detail_->BodyRecordset.Close();
}

void VoucherForm::QueryUnload(bool& cancel)
{
    ConfirmClose(cancel);
}

void VoucherForm::HandlerFailed(const std::exception& failure)
{
    resumePainting();
    ShowError(this, failure);
}

// ---- Keys

LookupCode* VoucherForm::lookupOf(const Control* control) const
{
    for (LookupCode* lookup : lookups_)
        if (&lookup->Code() == control)
            return lookup;
    return nullptr;
}

void VoucherForm::clickSave()
{
    // A completely entered row is added even though its last field has not been left yet, as
    // happens when BtnSave is clicked with the mouse.
    if (BtnSave.IsVisible() && BtnSave.IsEnabled() && detail_ &&
        detail_->AddsWhenLeft(ActiveControl(), BtnSave) &&
        !detail_->CodeControl().Text().trimmed().isEmpty() && !AddDetailRow())
        return;
    BtnSave.Click();
}

bool VoucherForm::pressCtrl(int key)
{
    const auto found = std::find_if(ctrlKeys_.cbegin(), ctrlKeys_.cend(),
                                    [key](const CtrlKey& each) { return each.Code == key; });
    if (found == ctrlKeys_.cend())
        return false;
    if (found->Button == &BtnSave)
        clickSave();
    else
        found->Button->Click();
    return true;
}

void VoucherForm::FormKeyDown(KeyPress& key)
{
    if (key.Shift == Qt::ControlModifier) {
        const bool taken = pressCtrl(key.Code);
        if (taken)
            key.Swallow();
        return;
    }
    Control* active = ActiveControl();
    const bool plain = key.Shift == Qt::NoModifier;
    const bool onCode = detail_ && active == &detail_->CodeControl();
    switch (key.Code) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (detail_ && active == rows_) {
            key.Swallow();
            detail_->GridChosen();
            return;
        }
        break;
    case Qt::Key_Escape:
        if (declaration_.EscClearsEntryRow && detail_) {
            key.Swallow();
            ClearEntryRow();
            SetFocus(detail_->CodeControl());
        }
        return;
    case Qt::Key_F1:
        if (LookupCode* lookup = lookupOf(active)) {
            key.Swallow();
            lookup->PressF1();
        }
        return;
    case Qt::Key_F4:
        // Without modifiers only: Alt+F4 closes the window.
        if (LookupCode* lookup = plain ? lookupOf(active) : nullptr; lookup && lookup->Button()) {
            key.Swallow();
            lookup->Button()->Click();
        }
        return;
    case Qt::Key_Down:
        // Without modifiers only: Alt+Down opens the calendar of a date field.
        if (declaration_.DownBecomesTab && plain) {
            key.Swallow();
            FocusNext();
        } else if (onCode && plain) {
            key.Swallow();
            SetFocus(*rows_);
        }
        return;
    case Qt::Key_F12:
        if (onCode) {
            key.Swallow();
            Control* next = detail_->AfterF12() ? detail_->AfterF12() : &BtnSave;
            if (next->IsEnabled())
                SetFocus(*next);
        }
        return;
    default:
        break;
    }
    Form::FormKeyDown(key);
}

bool VoucherForm::TypingCounts(const Control& control) const
{
    return control.Name().startsWith(QLatin1String("TXT"), Qt::CaseInsensitive);
}

void VoucherForm::FormKeyPress()
{
    const Control* active = ActiveControl();
    if (active && TypingCounts(*active))
        MarkEdited();
}

} // namespace TradeForms
