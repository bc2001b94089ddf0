#pragma once

#include "controls/Grid.h"
#include "controls/MsgBox.h"
#include "data/Recordset.h"

#include <QList>

#include <functional>

namespace TradeForms {

class CaptionLabel;
class Txt;
class VoucherForm;

/// One column of the rows: an entry control, a column of the grid and, unless it is only
/// displayed, a column of the body table.
struct DetailColumn {
    enum class Storage {
        Key,          ///< the text; written only when the row is added, and tells rows apart
        TrimmedKey,   ///< the same without its outer blanks
        Display,      ///< not stored
        Number,       ///< Val of the text
        NumberOrNull, ///< Val of the text, or null for an empty one
        Text,         ///< the text
        TextOrNull,   ///< the text, or null for an empty one
        TrimmedOrNull ///< the text without its outer blanks, or null where nothing is left
    };
    GridColumn Column; ///< the one named "ID" holds the row's code
    Txt* Control;
    const char* Field; ///< of the display statement and, unless only displayed, of the body
    Storage Kind;
    bool TellsRows = false;          ///< tells rows apart though it may be corrected
    CaptionLabel* Caption = nullptr; ///< over the entry control, where the form's code touches it

    bool IsKey() const { return Kind == Storage::Key || Kind == Storage::TrimmedKey; }
};

/// A field of the entry row that has to be filled.
struct RequiredField {
    Txt* Field;
    Message Empty = {};     ///< an empty text says nothing
    bool TakesFocus = true; ///< whether the focus goes there
};

/// A field whose leaving adds the row.
struct RowEnd {
    Txt* Field;
    QList<const Control*> Unless; ///< not when the focus goes to one of these
};

/// What becomes of a row that is added though the voucher holds it already.
enum class Twice {
    RefusedAndCleared, ///< the user is told, and the entry row emptied
    Refused,           ///< the user is told, and the entry row stays
    Overwrites         ///< nothing is told; the record that is there takes the new values
};

/// What tells the rows of one form from those of another. Statements take the voucher's key as the
/// form's own statements do (VoucherForm::WithKey).
struct DetailDeclaration {
    QList<DetailColumn> Columns; ///< in the order of the grid, which ends in the code
    const char* IdColumn;        ///< of the voucher's key in the body table
    const char* Body;            ///< selects the body rows of the voucher
    const char* Display;         ///< the same with the names, for the grid
    /// Clause for the place {narrow} of Display, where it has one.
    std::function<Statement()> Narrow = {};
    /// Finds a row that is in the grid: takes {id}, {code}, and each column that tells rows apart
    /// by its name in the body.
    const char* RowFilter;
    /// Finds the row that is entered, where that takes more than RowFilter. Null is RowFilter.
    const char* EntryFilter = nullptr;
    /// Asked in this order, of a row that is corrected too.
    QList<RequiredField> Required = {};
    /// Whether the entry may become a new row; where it may not, the user has been told and the
    /// focus set.
    std::function<bool()> MayAdd = {};
    Twice AddedTwice = Twice::RefusedAndCleared;
    Message Duplicate = {QStringLiteral("The Record Already Exist"), MsgIcon::Information,
                         QStringLiteral("Alert")};
    /// Runs when a row has been accepted, before it is written.
    std::function<void()> OnAccepted = {};
    bool AddMarksEdited = true; ///< a row that is added or corrected marks the voucher as edited
    Txt* Total = nullptr;       ///< shows the sum of the grid's column "Amount"
    /// Closed together with the code while a row of the grid is looked at or corrected.
    QList<Control*> Closes = {};
    Control* EditFirst; ///< gets the focus for correcting a row
    QList<RowEnd> Ends;
    Control* F12 = nullptr; ///< where F12 leads from the code; null is BtnSave
    /// Copies more of the header into a row before it is saved.
    std::function<void(Recordset& row)> OnStamp = {};
};

/// The entry row above the grid. A row stands twice: in the grid for the eye, in BodyRecordset
/// for the database; the two are tied by what tells rows apart. Nothing reaches the table before
/// the voucher is saved. The grid always ends in one blank row, whose ID is one blank.
///
/// The grid's events run the form's steps (VoucherForm::AddDetailRow and so on), so that a form may
/// override one; what the steps do where it does not is here.
class DetailGrid {
public:
    using Storage = DetailColumn::Storage;

    DetailGrid(VoucherForm& form, Grid& grid, DetailDeclaration declaration);
    DetailGrid(const DetailGrid&) = delete;
    DetailGrid& operator=(const DetailGrid&) = delete;

    /// The rows of this voucher; all edits go here first.
    Recordset BodyRecordset;
    /// True while the entry controls add a row, false while they correct one.
    bool IsRowAdd = true;
    /// True while the grid has the focus, so that a change of row shows in the entry controls.
    bool IsGridActive = false;

    // Bodies of the form's steps.

    /// Opens BodyRecordset on the voucher whose key is on the form, and fills the grid.
    void LoadDetail();
    /// Puts the row of the entry controls into the grid and BodyRecordset. False where it was
    /// refused.
    bool AddDetailRow();
    /// Empties the entry controls from the code to the last field, so that what follows others is
    /// emptied last; and opens the code.
    void ClearEntryRow();
    /// Copies the grid's current row to the entry controls, in the same order.
    void ShowGridRow();
    /// Removes the grid's current row, unless it is the blank one.
    void RemoveRow();

    /// The popup MnuDelete with mniRemoveRow, for a current row that is not the blank one.
    void ShowRowMenu(const QPoint& position);
    /// The grid was left, or Enter or a double-click chose its row: to the entry controls.
    void GridChosen();
    /// Leaves just the blank row.
    void EmptyGrid();
    /// A new voucher: the entry controls add rows, and the code is open.
    void StartAdding();
    /// Stamps the rows and writes them to the table. Raises OverflowFailure above 32767 rows.
    void SaveBody();
    /// Rows to be saved, whatever filter was left on.
    int CountRows();

    /// Whether leaving a control for another one adds the row.
    bool AddsWhenLeft(const Control* from, const Control& to) const;

    /// The entry row as a strip of the window: the code's part, then the other entry controls, each
    /// under the caption of its column and of its width.
    QWidget* EntryRow(QWidget* code) const;

    Txt& CodeControl() const { return *code_->Control; }
    /// Where F12 leads from the code; null is BtnSave.
    Control* AfterF12() const { return declaration_.F12; }
    Grid& Rows() const { return grid_; }

private:
    /// The text of a column, taken from the entry controls or from a row of the grid.
    using Texts = std::function<QString(const DetailColumn&)>;

    bool isBlank(int row) const;
    QString code(int row) const;
    void appendBlankRow();
    void openCode(bool open);
    Statement filterOf(const char* filter, const Texts& texts) const;
    bool isEntryOf(int row) const;
    bool isFilled() const;
    bool refusedTwice();
    double amountOf(int row) const;
    /// What the total comes to with an amount more. Raises OverflowFailure.
    QString totalWith(double amount) const;
    void showTotal(const QString& total) const;
    void ended(const RowEnd& end);
    /// Puts the voucher's key, and what else the form copies from the header, into each row.
    void stampId();
    void attach();

    VoucherForm& form_;
    Grid& grid_;
    DetailDeclaration declaration_;
    /// The declaration's columns from the code to the last field.
    QList<const DetailColumn*> fromCode_;
    const DetailColumn* code_ = nullptr;
    const DetailColumn* amount_ = nullptr; ///< null where the rows have none
    /// The key that the rows carry: the one on the screen may be typed over, or change when
    /// another user has taken it, and is stamped on them when the voucher is saved.
    QVariant rowsId_;
};

} // namespace TradeForms
