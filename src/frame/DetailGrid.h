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

/// One column of the detail rows: an entry control, a grid column and, unless it is display-only, a
/// column of the body table.
struct DetailColumn {
    enum class Storage {
        Key,          ///< the text; written only when the row is added; part of the row's identity
        TrimmedKey,   ///< the same with leading and trailing spaces removed
        Display,      ///< not stored
        Number,       ///< Val of the text
        NumberOrNull, ///< Val of the text, or null if it is empty
        Text,         ///< the text
        TextOrNull,   ///< the text, or null if it is empty
        TrimmedOrNull ///< the trimmed text, or null if that is empty
    };
    GridColumn Column; ///< the column named "ID" holds the row's code
    Txt* Control;
    const char* Field; ///< column of the display statement and, unless display-only, of the body
    Storage Kind;
    bool TellsRows = false;          ///< part of the row's identity though it may be corrected
    CaptionLabel* Caption = nullptr; ///< above the entry control, if the form's code changes it

    bool IsKey() const { return Kind == Storage::Key || Kind == Storage::TrimmedKey; }
};

/// A mandatory field of the entry row.
struct RequiredField {
    Txt* Field;
    Message Empty = {};     ///< shown if the field is empty; an empty text shows no box
    bool TakesFocus = true; ///< whether the focus moves to the empty field
};

/// A field that adds the row when the focus leaves it.
struct RowEnd {
    Txt* Field;
    QList<const Control*> Unless; ///< except when the focus moves to one of these
};

/// What happens when a row is added that the voucher already has.
enum class Twice {
    RefusedAndCleared, ///< the user is told, and the entry row is cleared
    Refused,           ///< the user is told, and the entry row is kept
    Overwrites         ///< no message; the new values overwrite the existing record
};

/// The properties in which the rows of one form differ from those of another. The statements have
/// the same places for the voucher's key as the form's own (VoucherForm::WithKey).
struct DetailDeclaration {
    QList<DetailColumn> Columns; ///< in the order of the grid; the code is the last one
    const char* IdColumn;        ///< column of the voucher's key in the body table
    const char* Body;            ///< selects the body rows of the voucher
    const char* Display;         ///< selects the same rows with the names, for the grid
    /// Returns the clause for the place {narrow} of Display, if it has one.
    std::function<Statement()> Narrow = {};
    /// Filter that finds the record of a row in the grid. Its places are {id}, {code} and, under
    /// their body column names, the other columns of the row's identity.
    const char* RowFilter;
    /// Filter that finds the record of the row being entered, if it differs from RowFilter; null
    /// for RowFilter.
    const char* EntryFilter = nullptr;
    /// Mandatory fields in the order in which they are checked, also when a row is corrected.
    QList<RequiredField> Required = {};
    /// Whether the entry may become a new row. If it returns false, it has told the user and set
    /// the focus.
    std::function<bool()> MayAdd = {};
    Twice AddedTwice = Twice::RefusedAndCleared;
    Message Duplicate = {QStringLiteral("The Record Already Exist"), MsgIcon::Information,
                         QStringLiteral("Alert")};
    /// Called when a row has passed the checks, before it is written.
    std::function<void()> OnAccepted = {};
    bool AddMarksEdited = true; ///< whether adding or correcting a row marks the voucher as edited
    Txt* Total = nullptr;       ///< shows the sum of the grid's column "Amount"; null for none
    /// Disabled together with the code while a row of the grid is shown or corrected.
    QList<Control*> Closes = {};
    Control* EditFirst; ///< gets the focus when a row is to be corrected
    QList<RowEnd> Ends;
    Control* F12 = nullptr; ///< where F12 moves the focus from the code; null for BtnSave
    /// Copies further header values into a row before it is saved.
    std::function<void(Recordset& row)> OnStamp = {};
};

/// The entry row and the grid below it. Each row exists twice: in the grid for display and in
/// BodyRecordset for the database, linked by the columns of its identity. The body table is written
/// only when the voucher is saved. The grid always ends with one blank row, whose ID is a single
/// space.
///
/// The grid's events call the form's virtual steps (VoucherForm::AddDetailRow and so on), so that a
/// form can override them; the functions here are their default implementations.
class DetailGrid {
public:
    using Storage = DetailColumn::Storage;

    DetailGrid(VoucherForm& form, Grid& grid, DetailDeclaration declaration);
    DetailGrid(const DetailGrid&) = delete;
    DetailGrid& operator=(const DetailGrid&) = delete;

    /// The rows of this voucher, which hold all edits until it is saved.
    Recordset BodyRecordset;
    /// Whether the entry controls add a row (true) or correct one (false).
    bool IsRowAdd = true;
    /// Whether the grid has the focus, so that the entry controls show its current row.
    bool IsGridActive = false;

    // Default implementations of the form's steps.

    /// Opens BodyRecordset for the voucher whose key is on the form, and fills the grid.
    void LoadDetail();
    /// Writes the entry controls to a row of the grid and of BodyRecordset. Returns false if the
    /// row was refused.
    bool AddDetailRow();
    /// Clears the entry controls in order from the code to the last field, so that a field computed
    /// from others is cleared after them; and enables the code.
    void ClearEntryRow();
    /// Copies the grid's current row to the entry controls, in the same order.
    void ShowGridRow();
    /// Removes the grid's current row, unless it is the blank one.
    void RemoveRow();

    /// Shows the context menu MnuDelete with the entry mniRemoveRow, unless the current row is the
    /// blank one. position: in screen coordinates.
    void ShowRowMenu(const QPoint& position);
    /// Handles leaving the grid, and choosing its current row by Enter or a double-click: moves to
    /// the entry controls.
    void GridChosen();
    /// Removes all rows but the blank one.
    void EmptyGrid();
    /// Prepares for a new voucher: the entry controls add rows, and the code is enabled.
    void StartAdding();
    /// Sets the voucher's key in the rows and writes them to the table. Raises OverflowFailure for
    /// more than 32767 rows.
    void SaveBody();
    /// Returns the number of rows to be saved; clears any filter.
    int CountRows();

    /// Whether moving the focus from one control to another adds the row.
    bool AddsWhenLeft(const Control* from, const Control& to) const;

    /// Builds the entry row strip: the widget of the code, then the other entry controls, each with
    /// its column's caption and width.
    QWidget* EntryRow(QWidget* code) const;

    Txt& CodeControl() const { return *code_->Control; }
    /// Where F12 leads from the code; null is BtnSave.
    Control* AfterF12() const { return declaration_.F12; }
    Grid& Rows() const { return grid_; }

private:
    /// Returns the text of a column, from the entry controls or from a row of the grid.
    using Texts = std::function<QString(const DetailColumn&)>;

    bool isBlank(int row) const;
    QString code(int row) const;
    void appendBlankRow();
    void openCode(bool open);
    Statement filterOf(const char* filter, const Texts& texts) const;
    bool isEntryOf(int row) const;
    bool isFilled() const;
    bool refuseDuplicate();
    double amountOf(int row) const;
    /// Returns the total increased by an amount. Raises OverflowFailure.
    QString totalWith(double amount) const;
    void showTotal(const QString& total) const;
    void rowEndLeft(const RowEnd& end);
    /// Writes the voucher's key, and the further header values, to each row.
    void stampId();
    void attach();

    VoucherForm& form_;
    Grid& grid_;
    DetailDeclaration declaration_;
    /// The declared columns in the order from the code to the last field.
    QList<const DetailColumn*> fromCode_;
    const DetailColumn* code_ = nullptr;
    const DetailColumn* amount_ = nullptr; ///< null if the rows have none
    /// The key that the rows have at present. The key on the screen may differ: the user can change
    /// it, and it changes when another user has taken it. Saving writes it to the rows.
    QVariant rowsId_;
};

} // namespace TradeForms
