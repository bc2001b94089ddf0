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

/// When the clean-up of a failed step rolls the transaction back.
enum class Rollback {
    IfErrors, ///< if the database has reported an error
    Always,   ///< unconditionally; if the rollback fails too, the plain error box is shown
    Never
};

/// The values in which voucher forms differ. Each form defines them at the top of its source file.
struct VoucherDeclaration {
    Caption Title;         ///< title of the strip; the English text is also the window title
    const char* ScreenKey; ///< the host's name of the menu entry: "MniGatePass"

    // Statements. {id} is the voucher's key; a form may have further places (WithKey).
    const char* NextId =
        nullptr;               ///< selects the largest id or the next one; null if none is assigned
    bool NextIdAddsOne = true; ///< whether 1 is added to the result of NextId
    const char* IsPosted = nullptr; ///< selects the posted flag; null on forms without one
    const char* Load;               ///< selects the header with its names
    /// Selects a row if the key is taken. If null, two users who save under the same new number
    /// write to the same voucher.
    const char* Race = nullptr;
    const char* Header = nullptr; ///< selects the header row to write; null if saved otherwise
    QList<const char*> Delete;    ///< the statements that delete a voucher, the body's first

    // The dialog that lists the stored vouchers, and its output that is put into the id field.
    const SearchDeclaration* Vouchers = nullptr;
    const char* ChosenVoucher = nullptr;

    // Messages.
    QString IdTaken = {};
    Message NoRows = {};        ///< empty text if a voucher without rows may be stored
    QString PrintQuestion = {}; ///< empty if the form does not print
    QString NotModify = QStringLiteral("You are not authorized to modify a record");
    QString NotDelete = QStringLiteral("You are not authorized to Delete a record");
    Message CloseQuestion = {QStringLiteral("Are you sure to close without save?"),
                             MsgIcon::Question, QStringLiteral("Alert"), MsgButtons::YesNo};

    Rollback SaveTail = Rollback::IfErrors;
    Rollback DeleteTail = Rollback::IfErrors;

    bool DateStays = false; ///< set to today when the window opens, not for each voucher

    // Keys and buttons.
    bool CtrlKeys = true;
    bool Prints = false; ///< shows BtnPrint, which Ctrl+P clicks
    bool DownBecomesTab = false;
    bool EscClearsEntryRow = true;
    const char* DeleteWord = "Delete"; ///< English caption of BtnDelete
};

/// The base of all transaction forms: opening the window, the three states, the keyboard, clearing,
/// opening a stored voucher, saving, deleting, closing and error handling. A form declares its
/// values and overrides the steps in which it differs.
class VoucherForm : public Form {
    Q_OBJECT
public:
    enum class State { New = 1, Edited = 2, Opened = 3 };

    /// To be called once before the window is shown: sets the caption and state New, and hides the
    /// writing buttons in server mode.
    virtual void FormLoad();
    /// Enters a state. All switching of buttons happens here.
    virtual void SetFormState(State state);
    State FormState() const { return state_; }
    /// Whether the voucher on the screen has never been stored.
    bool IsNew = true;
    /// Whether there is unsaved work, that is, BtnSave is enabled.
    bool IsDirty() const { return BtnSave.IsEnabled(); }
    /// Enters state Edited, unless the form is in it already.
    void MarkEdited();

    /// The voucher's key: the number in the id field, or a text on forms whose key is one.
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

    // Called by the form's constructor, each at most once.
    void UseId(Txt& id) { id_ = &id; }
    /// The voucher's date, which the date range check uses and state New sets to today.
    void UseDate(DTPicker& date) { date_ = &date; }
    void UseHeader(QList<HeaderField> fields) { header_ = VoucherHeader(std::move(fields)); }
    /// The rows of the voucher and their grid.
    void UseDetail(DetailGrid& detail);
    /// A display-only grid, whose painting is resumed at the end of each step.
    void UseRows(Grid& rows) { rows_ = &rows; }
    /// The control focused for a new voucher and for an opened one; null leaves the focus where it
    /// is.
    void UseFocus(Control* newVoucher, Control* openedVoucher);
    /// The controls of the voucher's identity: enabled for a new voucher, disabled once it has been
    /// opened.
    void UseIdentity(QList<Control*> controls) { identity_ = std::move(controls); }
    /// Creates a further button of the bar, which Ctrl with this key clicks.
    JeweledButton& MoreButton(const char* name, const Caption& caption, Qt::Key key);
    /// Lays out the window: title, the parts from top to bottom, the buttons. This is also the tab
    /// order.
    void Compose(const QList<QWidget*>& parts);
    /// Moves a control right after another one in the tab order, wherever it is laid out. To be
    /// called after Compose.
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
    /// Performs the checks and writes in the form's own order, using the steps below.
    virtual void SaveVoucher() = 0;
    virtual void DeleteVoucher();
    virtual void PrintVoucher();
    virtual void ConfirmClose(bool& cancel);
    /// Whether typing in a control marks the voucher as edited.
    virtual bool TypingCounts(const Control& control) const;

    // The parts of opening and deleting.
    /// Lets the user choose from the list of stored vouchers and puts the key into its fields.
    /// Returns false if nothing was chosen. The base expects a numeric key.
    virtual bool ChooseVoucher();
    /// Copies the stored header to its controls; they stay unchanged if there is none.
    void LoadHeader();
    bool AsksToDelete();
    bool PassesDeleteRule();
    /// Deletes the voucher in one transaction, then enters state New.
    void EraseVoucher();

    // The parts of SaveVoucher. A check that returns false has told the user why.
    bool PassesPostedRule();
    bool PassesModifyRule();
    bool PassesDateWindow();
    /// Checks a mandatory field. If it is empty, shows the message (by default with the exclamation
    /// icon under the form's caption), focuses it and returns false.
    bool IsFilled(Txt& field, const QString& message);
    bool IsFilled(Txt& field, const Message& message);
    /// Shows the message, moves the focus and returns false.
    bool Refuse(Control& focus, const Message& message);
    /// Returns false if another user has taken the number of a new voucher; the voucher then has a
    /// new number.
    bool PassesRaceRule();
    bool HasRows();
    void BeginTrans();
    /// Calls OpenHeader and WriteHeader.
    void SaveHeader();
    /// Opens the header row of the voucher; empty for a new one. If another user has meanwhile
    /// stored a row under the number of a new voucher, the save ends as with the race rule.
    Recordset OpenHeader();
    void WriteHeader(Recordset& header);
    void SaveBody();
    void CommitTrans();
    void AskToPrint();
    /// Runs a step without the form's own error handling: an exception is shown in the base class's
    /// plain box.
    void Unguarded(const std::function<void()>& step);

    /// Returns a statement with the voucher's key bound to its places.
    virtual Statement WithKey(const char* text) const;
    static Connection& Database();

    void FormKeyDown(KeyPress& key) override;
    void FormKeyPress() override;
    void QueryUnload(bool& cancel) override;
    void HandlerFailed(const std::exception& failure) override;

private:
    friend class DetailGrid; // its events call the form's steps

    struct CtrlKey {
        int Code;
        JeweledButton* Button;
    };

    void attach();
    void enterNew();
    void skipTakenNumbers();
    void enterEdited();
    void enterOpened();
    void showState();
    void openIdentity(bool open);
    void resumePainting();
    /// Runs a step that writes, and its clean-up.
    void runWriting(const std::function<void()>& step, Rollback tail);
    /// Tells the user that the number is taken, and assigns the next one.
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

/// Creates the grid of a voucher, with its columns from left to right.
Grid& VoucherGrid(QWidget* form, const char* name = "Grid");

} // namespace TradeForms
