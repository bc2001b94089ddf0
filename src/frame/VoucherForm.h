#pragma once

#include "controls/Buttons.h"
#include "controls/DTPicker.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/MsgBox.h"
#include "controls/Pieces.h"
#include "controls/Txt.h"
#include "data/Recordset.h"
#include "data/Statement.h"
#include "frame/DetailGrid.h"
#include "frame/LookupCode.h"
#include "frame/VoucherHeader.h"

#include <QList>
#include <QString>

#include <functional>

namespace TradeForms {

class Connection;
struct SearchDeclaration;

/// When the tail of a step that failed rolls the transaction back.
enum class Rollback {
    IfErrors, ///< where the database has reported an error
    Always,   ///< without a test; a rollback that fails in its turn ends in the plain error box
    Never
};

/// What tells one voucher form from another and is a value: each form has it at its top.
struct VoucherDeclaration {
    Caption Title;         ///< of the strip; the English one also for the task bar
    const char* ScreenKey; ///< the host's menu entry: "MniGatePass"

    // Statements; {id} is the voucher's key, and a form may have further places (WithKey).
    const char* NextId = nullptr;   ///< the largest id so far, or the next one; null draws none
    bool NextIdAddsOne = true;      ///< whether the program adds 1 to it
    const char* IsPosted = nullptr; ///< on forms with a posted flag
    const char* Load;               ///< the header with its names
    /// Finds a row where the key is taken. Null: two users on one new number land on one voucher.
    const char* Race = nullptr;
    const char* Header = nullptr; ///< the header row to write; null where the form writes otherwise
    QList<const char*> Delete;    ///< the body always first

    // The list of stored vouchers, and the output of it that goes into the id field.
    const SearchDeclaration* Vouchers = nullptr;
    const char* ChosenVoucher = nullptr;

    // Messages.
    QString IdTaken = {};
    Message NoRows = {};        ///< an empty text: a voucher without rows is stored
    QString PrintQuestion = {}; ///< empty on forms that do not print
    QString NotModify = QStringLiteral("You are not authorized to modify a record");
    QString NotDelete = QStringLiteral("You are not authorized to Delete a record");
    Message CloseQuestion = {QStringLiteral("Are you sure to close without save?"),
                             MsgIcon::Question, QStringLiteral("Alert"), MsgButtons::YesNo};

    Rollback SaveTail = Rollback::IfErrors;
    Rollback DeleteTail = Rollback::IfErrors;

    bool DateStays = false; ///< set to today when the window opens, not with each voucher

    // Keys and buttons.
    bool CtrlKeys = true;
    bool Prints = false; ///< has BtnPrint, and Ctrl+P clicks it
    bool DownBecomesTab = false;
    bool EscClearsEntryRow = true;
    const char* DeleteWord = "Delete"; ///< English caption of BtnDelete
};

/// The common frame of all transaction forms: opening the window, the three states, the
/// keyboard, clearing, opening a stored voucher, saving, deleting, closing and failing. A form
/// declares its values, and overrides the step in which it differs.
class VoucherForm : public Form {
    Q_OBJECT
public:
    enum class State { New = 1, Edited = 2, Opened = 3 };

    /// The window's load event: caption, state New, and no writing buttons in server mode.
    virtual void FormLoad();
    /// The one place that switches the buttons.
    virtual void SetFormState(State state);
    State FormState() const { return state_; }
    /// True while the voucher on screen has never been stored.
    bool IsNew = true;
    /// Unsaved work: BtnSave is enabled.
    bool IsDirty() const { return BtnSave.IsEnabled(); }
    /// State Edited, unless the form is there already.
    void MarkEdited();

    /// The key that the rows carry: the number in the id field, or the text of a form whose key is
    /// one.
    virtual QVariant VoucherId() const;

    void AddLookup(LookupCode& lookup) { lookups_.append(&lookup); }

    // The controls that all forms have, for their layout and their tests.
    TitleStrip& Title;
    JeweledButton& BtnSave;
    JeweledButton& BtnOpen;
    JeweledButton& BtnDelete;
    JeweledButton& BtnClear;
    JeweledButton& BtnClose;
    JeweledButton& BtnPrint; ///< hidden on forms that do not print

protected:
    explicit VoucherForm(VoucherDeclaration declaration);
    ~VoucherForm() override;

    const VoucherDeclaration& Declaration() const { return declaration_; }

    // What the form names, once, in its constructor.
    void UseId(Txt& id) { id_ = &id; }
    /// The voucher's date, for the date window and for state New.
    void UseDate(DTPicker& date) { date_ = &date; }
    void UseHeader(QList<HeaderField> fields) { header_ = VoucherHeader(std::move(fields)); }
    /// The rows of the voucher, and the grid they are in.
    void UseDetail(DetailGrid& detail);
    /// A grid that only shows: the tail of each step turns its painting on again.
    void UseRows(Grid& rows) { rows_ = &rows; }
    /// Focus of a new and of an opened voucher; null leaves it where it is.
    void UseFocus(Control* newVoucher, Control* openedVoucher);
    /// What tells the voucher from others: open on a new one, closed once it has been opened.
    void UseIdentity(QList<Control*> controls) { identity_ = std::move(controls); }
    /// A further button of the bar, which Ctrl with this key clicks.
    JeweledButton& MoreButton(const char* name, const Caption& caption, Qt::Key key);
    /// The window: title, the parts from top to bottom, the buttons; Tab walks in that order.
    void Compose(const QList<QWidget*>& parts);
    /// Tab comes to a control right after another one, wherever it is laid out. After Compose.
    void TabAfter(Control& control, const Control& before);

    // Steps.
    virtual void ClearVoucher();
    virtual qint32 NextVoucherId();
    virtual void LoadVoucher();
    virtual void LoadDetail();
    virtual bool AddDetailRow();
    virtual void ClearEntryRow();
    virtual void ShowGridRow();
    virtual void RemoveRow();
    virtual void OpenVoucher();
    /// The checks and writes in the form's own order, made of the steps below.
    virtual void SaveVoucher() = 0;
    virtual void DeleteVoucher();
    virtual void PrintVoucher();
    virtual void ConfirmClose(bool& cancel);
    /// Whether typing in a control marks the voucher as edited.
    virtual bool TypingCounts(const Control& control) const;

    // The parts of opening and deleting.
    /// Lets the user choose from the list of stored vouchers and puts the key into its fields.
    /// False where nothing was chosen. The base takes a number.
    virtual bool ChooseVoucher();
    /// Copies the stored header to its controls; they stay as they are where there is none.
    void LoadHeader();
    bool AsksToDelete();
    bool PassesDeleteRule();
    /// Deletes the voucher in one transaction, then state New.
    void EraseVoucher();

    // The parts of SaveVoucher; a check that fails has said why.
    bool PassesPostedRule();
    bool PassesModifyRule();
    bool PassesDateWindow();
    /// A mandatory field: message with the exclamation icon under the form's caption, and focus.
    bool IsFilled(Txt& field, const QString& message);
    bool IsFilled(Txt& field, const Message& message);
    /// Says why, moves the focus, gives false.
    bool Refuse(Control& focus, const Message& message);
    /// Whether another user has taken the number of a new voucher; then a new one is there.
    bool PassesRaceRule();
    bool HasRows();
    void BeginTrans();
    /// OpenHeader and WriteHeader.
    void SaveHeader();
    /// The header row of the voucher, or none of a new one. A row that another user has stored
    /// meanwhile under the number of a new voucher ends the save as the race rule does.
    Recordset OpenHeader();
    void WriteHeader(Recordset& header);
    void SaveBody();
    void CommitTrans();
    void AskToPrint();
    /// Runs a step that has no guard of its own: a failure ends in the platform's plain box.
    void Unguarded(const std::function<void()>& step);

    /// A statement with the voucher's key in its places.
    virtual Statement WithKey(const char* text) const;
    static Connection& Database();

    void FormKeyDown(KeyPress& key) override;
    void FormKeyPress() override;
    void QueryUnload(bool& cancel) override;
    void HandlerFailed(const std::exception& failure) override;

private:
    friend class DetailGrid; // the grid's events run the form's steps

    struct CtrlKey {
        int Code;
        JeweledButton* Button;
    };

    void attach();
    void enterNew();
    void dropRowsOfAnother();
    void enterEdited();
    void enterOpened();
    void showState();
    void openIdentity(bool open);
    void resumePainting();
    /// Runs a step that writes, with its tail.
    void runWriting(const std::function<void()>& step, Rollback tail);
    /// Says that the number is taken, and takes the next one.
    void giveNewNumber();
    bool pressCtrl(int key);
    void clickSave();
    LookupCode* lookupOf(const Control* control) const;

    VoucherDeclaration declaration_;
    State state_ = State::New;
    VoucherHeader header_;
    Txt* id_ = nullptr;
    DTPicker* date_ = nullptr;
    Grid* rows_ = nullptr;
    DetailGrid* detail_ = nullptr;
    Control* newFocus_ = nullptr;
    Control* openedFocus_ = nullptr;
    QList<Control*> identity_;
    QList<CtrlKey> ctrlKeys_;
    QList<JeweledButton*> moreButtons_;
    QList<Control*> tabOrder_;
    QList<LookupCode*> lookups_;
};

/// The grid of a voucher, named "Grid", its columns from left to right.
Grid& VoucherGrid(QWidget* form, const char* name = "Grid");

} // namespace TradeForms
