#pragma once

#include "controls/Buttons.h"
#include "controls/DTPicker.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/MsgBox.h"
#include "controls/Pieces.h"
#include "controls/Txt.h"
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
    const char* WindowCaption; ///< for the task bar, and title of the mandatory checks
    const char* Urdu;          ///< title strip
    const char* ScreenKey;     ///< the host's menu entry: "MniGatePass"

    // Statements; {id} is the voucher's id.
    const char* NextId;             ///< the largest id so far, or the next one
    bool NextIdAddsOne = true;      ///< whether the program adds 1 to it
    const char* IsPosted = nullptr; ///< on forms with a posted flag
    const char* Load;               ///< the header with its names
    const char* Race;               ///< finds a row where the id is taken
    const char* Header;             ///< the header row to write
    QList<const char*> Delete;      ///< the body always first

    // The list of stored vouchers, and the output of it that goes into the id field.
    const SearchDeclaration* Vouchers = nullptr;
    const char* ChosenVoucher = nullptr;

    // Messages.
    QString IdTaken = {};
    Message NoRows = {};        ///< an empty text: a voucher without rows is stored
    QString PrintQuestion = {}; ///< empty on forms that do not print
    QString NotModify = QStringLiteral("You are not authorized to modify a record");
    QString NotDelete = QStringLiteral("You are not authorized to Delete a record");
    QString CloseQuestion = QStringLiteral("Are you sure to close without save?");

    Rollback SaveTail = Rollback::IfErrors;
    Rollback DeleteTail = Rollback::IfErrors;

    // Keys.
    bool Prints = false; ///< has BtnPrint, and Ctrl+P clicks it
    bool DownBecomesTab = false;
    bool EscClearsEntryRow = true;
};

/// The common shape of all transaction forms: opening the window, the three states, the
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

    /// The id on the screen as a number.
    double VoucherId() const;

    void AddLookup(LookupCode& lookup) { lookups_.append(&lookup); }

    // The controls that all forms have, for their layout and their tests.
    TitleStrip& Title;
    DTPicker& DtpDate;
    Grid& Rows;
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
    void UseHeader(VoucherHeader header) { header_ = std::move(header); }
    void UseDetail(DetailGrid& detail) { detail_ = &detail; }
    /// Focus of a new and of an opened voucher; null leaves it where it is.
    void UseFocus(Control* newVoucher, Control* openedVoucher);
    /// The window: title, header, entry row, the grid and the buttons. No entry row is null.
    void Compose(QWidget* header, QWidget* entryRow);

    // Steps.
    virtual void ClearVoucher();
    virtual qint32 NextVoucherId();
    virtual void LoadVoucher();
    virtual void LoadDetail();
    /// Lets the user choose from the list of stored vouchers. Ids are numbers; a form of another
    /// key opens by its own.
    virtual void OpenVoucher();
    /// The checks and writes in the form's own order, made of the steps below.
    virtual void SaveVoucher() = 0;
    virtual void DeleteVoucher();
    virtual void PrintVoucher();
    virtual void ConfirmClose(bool& cancel);
    virtual void ClearEntryRow();
    /// Whether typing in a control marks the voucher as edited.
    virtual bool TypingCounts(const Control& control) const;

    // The parts of SaveVoucher; a check that fails has said why.
    bool PassesPostedRule();
    bool PassesModifyRule();
    bool PassesDateWindow();
    bool IsFilled(Txt& field, const QString& message);
    /// Another user may have taken the id of a new voucher.
    bool PassesRaceRule();
    bool HasRows();
    void BeginTrans();
    /// Writes the header row, adding it where there is none. A new voucher whose number is stored
    /// by now ends the save as the race rule does, with nothing written.
    void SaveHeader();
    /// Stamps the rows with the id and writes them.
    void SaveBody();
    void CommitTrans();
    void AskToPrint();

    Statement WithId(const char* text) const;
    static Connection& Database();

    void FormKeyDown(KeyPress& key) override;
    void FormKeyPress() override;
    void QueryUnload(bool& cancel) override;
    void HandlerFailed(const std::exception& failure) override;

private:
    void attach();
    void enterNew();
    void dropRowsOfAnother();
    void enterEdited();
    void enterOpened();
    void showState();
    /// Runs a step that writes, with its tail.
    void runWriting(const std::function<void()>& step, Rollback tail);
    /// Says that the number is taken, and takes the next one.
    void giveNewNumber();
    bool pressCtrl(int key);
    void clickSave();
    LookupCode* lookupOf(const Control* control) const;

    VoucherDeclaration declaration_;
    State state_ = State::New;
    VoucherHeader header_{{}};
    Txt* id_ = nullptr;
    DetailGrid* detail_ = nullptr;
    Control* newFocus_ = nullptr;
    Control* openedFocus_ = nullptr;
    QList<LookupCode*> lookups_;
};

} // namespace TradeForms
