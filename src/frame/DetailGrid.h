#pragma once

#include "controls/Grid.h"
#include "controls/MsgBox.h"
#include "data/Recordset.h"

#include <QList>

#include <functional>

namespace TradeForms {

class Txt;
class VoucherForm;

/// One column of the rows: an entry control, a column of the grid and, unless it is only
/// displayed, a column of the body table.
struct DetailColumn {
    enum class Stored {
        Key,          ///< the row's code: text, written only when the row is added
        Display,      ///< not stored
        NumberOrNull, ///< Val of the text, or null for an empty one
        Number,       ///< Val of the text
        Text,         ///< the text
        TextOrNull    ///< the text, or null for an empty one
    };
    GridColumn Column;
    Txt* Control;
    const char* Field; ///< of the display statement
    Stored Is;
    const char* BodyColumn = nullptr;
    bool TellsRows = false; ///< with the code it tells one row from another
};

/// A field whose leaving adds the row.
struct RowEnd {
    Txt* Field;
    QList<Control*> Unless; ///< not when the focus goes to one of these
};

/// What tells the rows of one form from those of another.
struct DetailDeclaration {
    QList<DetailColumn> Columns; ///< in the order of the grid
    const char* IdColumn;        ///< the voucher's id in the body table
    const char* Body;            ///< selects the body rows of voucher {id}
    const char* Display;         ///< the same with the names, for the grid
    const char* RowFilter;       ///< the row of {code} in voucher {id}
    /// The row that is entered, where the code alone does not tell it: takes {id}, {code} and
    /// the names of the columns that tell rows. Null is RowFilter.
    const char* EntryFilter = nullptr;
    /// Whether the entry may become a row; where it may not, the user has been told and the
    /// focus set.
    std::function<bool()> MayAdd = {};
    Message NoCode = {}; ///< an empty text says nothing
    Message Duplicate = {QStringLiteral("The Record Already Exist"), MsgIcon::Information,
                         QStringLiteral("Alert")};
    Txt* EditFirst; ///< gets the focus for correcting a row
    QList<RowEnd> Ends;
    std::function<void()> OnClearEntryRow = {}; ///< what else is cleared with the entry controls
    std::function<void(Recordset& row)> OnStamp = {}; ///< copies more of the header into a row
};

/// The entry row above the grid. A row stands twice: in the grid for the eye, in BodyRecordset
/// for the database; the two are tied by the row's code. Nothing reaches the table before the
/// voucher is saved. The grid always ends in one blank row, whose ID is one blank.
class DetailGrid {
public:
    DetailGrid(VoucherForm& form, Grid& grid, DetailDeclaration declaration);
    DetailGrid(const DetailGrid&) = delete;
    DetailGrid& operator=(const DetailGrid&) = delete;

    /// The rows of this voucher; all edits go here first.
    Recordset BodyRecordset;
    /// True while the entry controls add a row, false while they correct one.
    bool IsRowAdd = true;
    /// True while the grid has the focus, so that a change of row shows in the entry controls.
    bool IsGridActive = false;

    /// Opens BodyRecordset on the voucher whose id is on the form, and fills the grid.
    void LoadDetail();
    /// Puts the row of the entry controls into the grid and BodyRecordset. False where it was
    /// refused, which the user has been told.
    bool AddDetailRow();
    void ClearEntryRow();
    /// Copies the grid's current row to the entry controls.
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

    Txt& CodeControl() const { return *code_; }
    Grid& Rows() const { return grid_; }

private:
    QString currentId() const;
    bool isBlank(int row) const;
    void appendBlankRow();
    void openCode(bool open);
    Statement filterOf(const char* filter, const QString& code) const;
    bool isEntryOf(int row) const;
    void ended(const RowEnd& end);
    /// Puts the voucher's id, and what else the form copies from the header, into each row.
    void stampId();
    void attach();

    VoucherForm& form_;
    Grid& grid_;
    DetailDeclaration declaration_;
    Txt* code_ = nullptr;
    QString codeColumn_;
    const char* codeBodyColumn_ = nullptr;
    /// The id that the rows carry: the one on the screen may be typed over, or change when
    /// another user has taken it, and is stamped on them when the voucher is saved.
    double rowsId_ = 0;
};

} // namespace TradeForms
