#include "frame/VoucherForm.h"

#include "controls/Look.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Numbers.h"
#include "data/Recordset.h"
#include "frame/Authorisation.h"
#include "host/HostContext.h"
#include "search/SearchDialog.h"

#include <QBoxLayout>

namespace TradeForms {

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

const QString& alert()
{
    static const QString title = QStringLiteral("Alert");
    return title;
}

/// The number of a new voucher was stored by another between the race rule and the lock.
class NumberTaken : public Failure {
public:
    using Failure::Failure;
};

JeweledButton& button(QWidget* form, const char* name, const char* urdu, const char* english,
                      const char* shortcut, JeweledButton::Kind kind = JeweledButton::Kind::Plain)
{
    return *new JeweledButton(utf8(name), utf8(urdu), utf8(english), utf8(shortcut), kind, form);
}

} // namespace

VoucherForm::VoucherForm(VoucherDeclaration declaration)
    : Title(*new TitleStrip(utf8(declaration.Urdu), utf8(declaration.WindowCaption), this)),
      DtpDate(*new DTPicker(QStringLiteral("DtpDate"), QStringLiteral("Date"), this)),
      Rows(*new Grid(QStringLiteral("Grid"), this)),
      BtnSave(button(this, "BtnSave", "محفوظ", "Save", "Ctrl+S", JeweledButton::Kind::Primary)),
      BtnOpen(button(this, "BtnOpen", "کھولیں", "Open", "Ctrl+O")),
      BtnDelete(button(this, "BtnDelete", "حذف", "Delete", "Ctrl+R")),
      BtnClear(button(this, "BtnClear", "صاف", "Clear", "Ctrl+W")),
      BtnClose(button(this, "BtnClose", "بند", "Close", "Ctrl+Q")),
      BtnPrint(button(this, "BtnPrint", "پرنٹ", "Print", "Ctrl+P")),
      declaration_(std::move(declaration))
{
    DtpDate.SetCustomFormat(QStringLiteral("dd/MM/yyyy"));
    Rows.setLayoutDirection(Qt::LeftToRight);
    // A field that may not be left must not keep the user from dropping or leaving the voucher.
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
    BtnDelete.OnClick += [this] {
        runWriting([this] { DeleteVoucher(); }, declaration_.DeleteTail);
    };
    BtnOpen.OnClick += [this] { OpenVoucher(); };
    BtnClear.OnClick += [this] { SetFormState(State::New); };
    BtnPrint.OnClick += [this] { PrintVoucher(); };
    BtnClose.OnClick += [this] { Unload(); };
    Title.ImgExit().OnClick += [this] { Unload(); };
}

void VoucherForm::UseFocus(Control* newVoucher, Control* openedVoucher)
{
    newFocus_ = newVoucher;
    openedFocus_ = openedVoucher;
}

void VoucherForm::Compose(QWidget* header, QWidget* entryRow)
{
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(1, 1, 1, 1);
    all->setSpacing(0);
    all->addWidget(&Title);
    all->addWidget(header);
    if (entryRow)
        all->addWidget(entryRow);
    auto* rows = new QHBoxLayout;
    rows->setContentsMargins(2 * Look::Space(), Look::Space(), 2 * Look::Space(), Look::Space());
    rows->addWidget(&Rows);
    all->addLayout(rows, 1);
    QList<JeweledButton*> work{&BtnSave, &BtnOpen};
    if (declaration_.Prints)
        work.append(&BtnPrint);
    work.append(&BtnDelete);
    all->addWidget(ButtonBar(work, {&BtnClear, &BtnClose}));
}

void VoucherForm::FormLoad()
{
    SetWindowCaption(utf8(declaration_.WindowCaption));
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
    // Last: emptying the fields of an opened voucher passes through Edited.
    state_ = state;
    showState();
}

void VoucherForm::enterNew()
{
    ClearVoucher();
    id_->SetText(QString::number(NextVoucherId()));
    DtpDate.SetValue(QDate::currentDate());
    LoadDetail();
    if (detail_) {
        dropRowsOfAnother();
        detail_->StartAdding();
    }
    if (newFocus_)
        ResetFocus(*newFocus_);
    BtnOpen.SetEnabled(true);
    BtnDelete.SetEnabled(false);
    BtnSave.SetEnabled(false);
    BtnPrint.SetEnabled(false);
    BtnClear.SetEnabled(true);
    IsNew = true;
}

/// Another may have stored a voucher under the number between its reading and that of the rows,
/// which are the other's then. Rows that no voucher holds leave the number as it is.
void VoucherForm::dropRowsOfAnother()
{
    while (detail_->CountRows() > 0) {
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
    BtnOpen.SetEnabled(true);
    BtnDelete.SetEnabled(true);
    BtnClear.SetEnabled(true);
    BtnPrint.SetEnabled(true);
    BtnSave.SetEnabled(false);
    IsNew = false;
}

void VoucherForm::showState()
{
    switch (state_) {
    case State::New:
        Title.SetState(utf8("نیا"), QStringLiteral("New"));
        break;
    case State::Edited:
        Title.SetState(utf8("ترمیم شدہ"), QStringLiteral("Edited"));
        break;
    case State::Opened:
        Title.SetState(utf8("کھلا ہوا"), QStringLiteral("Opened"));
        break;
    }
}

void VoucherForm::MarkEdited()
{
    if (!IsDirty())
        SetFormState(State::Edited);
}

// ---- The voucher on the screen

double VoucherForm::VoucherId() const
{
    return Val(id_->Text());
}

Connection& VoucherForm::Database()
{
    return *HostContext::Database();
}

Statement VoucherForm::WithId(const char* text) const
{
    return Statement(text).Bind("id", VoucherId());
}

void VoucherForm::ClearVoucher()
{
    for (Control* control : Controls())
        if (auto* txt = dynamic_cast<Txt*>(control))
            txt->SetText(QString());
    if (detail_) {
        detail_->EmptyGrid();
        detail_->ClearEntryRow();
    }
}

void VoucherForm::ClearEntryRow()
{
    if (detail_)
        detail_->ClearEntryRow();
}

qint32 VoucherForm::NextVoucherId()
{
    const Recordset largest = Database().Execute(declaration_.NextId);
    return ToInt32(largest.ValueAt(0, 0).toDouble() + (declaration_.NextIdAddsOne ? 1 : 0));
}

void VoucherForm::OpenVoucher()
{
    SearchDialog& vouchers = SearchDialog::Shared(*declaration_.Vouchers);
    vouchers.Show(this);
    const int id = vouchers.ParaOut(declaration_.ChosenVoucher).toInt();
    if (id == 0)
        return;
    id_->SetText(QString::number(id));
    LoadVoucher();
}

void VoucherForm::LoadVoucher()
{
    const Recordset stored = Database().Execute(WithId(declaration_.Load));
    if (!stored.Bof())
        header_.Load(stored);
    LoadDetail();
    SetFormState(State::Opened);
}

void VoucherForm::LoadDetail()
{
    if (detail_)
        detail_->LoadDetail();
}

// ---- Saving and deleting

void VoucherForm::runWriting(const std::function<void()>& step, Rollback tail)
{
    try {
        step();
        return;
    } catch (const NumberTaken&) {
        Rows.SetRedraw(true);
        Database().RollbackTrans();
        giveNewNumber();
    } catch (const std::exception& failure) {
        Rows.SetRedraw(true);
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
                                           WithId(declaration_.IsPosted));
}

bool VoucherForm::PassesModifyRule()
{
    return Authorisation::MayModify(this, utf8(declaration_.ScreenKey), declaration_.NotModify);
}

bool VoucherForm::PassesDateWindow()
{
    return Authorisation::PassesDateWindow(this, DtpDate.Value());
}

bool VoucherForm::IsFilled(Txt& field, const QString& message)
{
    if (!field.Text().trimmed().isEmpty())
        return true;
    Inform(this, message, MsgIcon::Exclamation, utf8(declaration_.WindowCaption));
    SetFocus(field);
    return false;
}

bool VoucherForm::PassesRaceRule()
{
    if (!IsNew || Database().Execute(WithId(declaration_.Race)).RecordCount() == 0)
        return true;
    giveNewNumber();
    return false;
}

void VoucherForm::giveNewNumber()
{
    Inform(this, declaration_.IdTaken, MsgIcon::Stop, alert());
    id_->SetText(QString::number(NextVoucherId()));
}

bool VoucherForm::HasRows()
{
    if (detail_->CountRows() > 0)
        return true;
    MsgBox(this, declaration_.NoRows);
    SetFocus(detail_->CodeControl());
    return false;
}

void VoucherForm::BeginTrans()
{
    Database().BeginTrans();
}

void VoucherForm::SaveHeader()
{
    Recordset header;
    header.Open(WithId(declaration_.Header), HostContext::Database(), CursorType::Static,
                LockType::Pessimistic);
    const bool isNew = header.Bof();
    if (IsNew && !isNew && declaration_.Race)
        throw NumberTaken(declaration_.IdTaken);
    if (isNew)
        header.AddNew();
    header_.Save(header, isNew);
    header.Update();
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
        // The voucher is stored: a failure of the printer is the printer's alone.
        Guard([this] { PrintVoucher(); });
    }
}

void VoucherForm::PrintVoucher() {}

void VoucherForm::DeleteVoucher()
{
    if (!Ask(this, QStringLiteral("Do you want to remove this record?"),
             QStringLiteral("Confirmation")))
        return;
    if (!Authorisation::MayDelete(this, utf8(declaration_.ScreenKey), declaration_.NotDelete))
        return;
    BeginTrans();
    for (const char* statement : declaration_.Delete)
        Database().Execute(WithId(statement));
    CommitTrans();
    // The rows leave the screen when they have left the table.
    SetFormState(State::New);
}

void VoucherForm::ConfirmClose(bool& cancel)
{
    if (IsDirty())
        cancel = !Ask(this, declaration_.CloseQuestion, alert());
    else if (detail_ && detail_->BodyRecordset.IsOpen())
        detail_->BodyRecordset.Close();
}

void VoucherForm::QueryUnload(bool& cancel)
{
    ConfirmClose(cancel);
}

void VoucherForm::HandlerFailed(const std::exception& failure)
{
    Rows.SetRedraw(true);
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
    // A row that is entered but for its last field's leaving belongs to the voucher, as it does
    // when the mouse clicks the button.
    if (BtnSave.IsVisible() && BtnSave.IsEnabled() && detail_ &&
        detail_->AddsWhenLeft(ActiveControl(), BtnSave) &&
        !detail_->CodeControl().Text().trimmed().isEmpty() && !detail_->AddDetailRow())
        return;
    BtnSave.Click();
}

bool VoucherForm::pressCtrl(int key)
{
    switch (key) {
    case Qt::Key_S:
        clickSave();
        return true;
    case Qt::Key_W:
        BtnClear.Click();
        return true;
    case Qt::Key_Q:
        BtnClose.Click();
        return true;
    case Qt::Key_O:
        BtnOpen.Click();
        return true;
    case Qt::Key_R:
        BtnDelete.Click();
        return true;
    case Qt::Key_P:
        if (declaration_.Prints)
            BtnPrint.Click();
        return declaration_.Prints;
    default:
        return false;
    }
}

void VoucherForm::FormKeyDown(KeyPress& key)
{
    if (key.Shift == Qt::ControlModifier) {
        // Swallowed before the click: it may close the form.
        const bool taken = pressCtrl(key.Code);
        if (taken)
            key.Swallow();
        return;
    }
    Control* active = ActiveControl();
    switch (key.Code) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (detail_ && active == &Rows) {
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
        // Alone: with Alt it is the system's key for closing a window.
        if (LookupCode* lookup = key.Shift == Qt::NoModifier ? lookupOf(active) : nullptr) {
            key.Swallow();
            lookup->Button().Click();
        }
        return;
    case Qt::Key_Down:
        if (declaration_.DownBecomesTab) {
            key.Swallow();
            FocusNext();
        } else if (detail_ && active == &detail_->CodeControl()) {
            key.Swallow();
            SetFocus(Rows);
        }
        return;
    case Qt::Key_F12:
        if (detail_ && active == &detail_->CodeControl()) {
            key.Swallow();
            if (BtnSave.IsEnabled())
                SetFocus(BtnSave);
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
