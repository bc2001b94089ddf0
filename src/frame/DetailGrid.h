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
        Key,         ///< the row's code: text, written only when the row is added
        Display,     ///< not stored
        NumberOrNull,///< Val of the text, or null for an empty one
        Number,      ///< Val of the text
        TextOrNull   ///< the text, or null for an empty one
    };
    GridColumn Column;
    Txt* Control;
    const char* Field;      ///< of the display statement
    Stored Is;
    const char* BodyColumn = nullptr;
};

/// What tells the rows of one form from those of another.
struct DetailDeclaration {
    QList<DetailColumn> Columns;            ///< in the order of the grid
    const char* IdColumn;                   ///< the voucher's id in the body table
    const char* Body;                       ///< selects the body rows of voucher {id}
    const char* Display;                    ///< the same with the names, for the grid
    const char* RowFilter;                  ///< the row of {code} in voucher {id}
    Message NoCode = {};                    ///< an empty text says nothing
    Message Duplicate;
    Txt* EditFirst;                         ///< gets the focus for correcting a row
    Txt* Last;                              ///< leaving it adds the row ...
    QList<Control*> NotLeft;                ///< ... unless for one of these
    std::function<void()> OnClearEntryRow = {};  ///< what else is cleared with the entry controls
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
    /// Puts the voucher's id, and what else the form copies from the header, into each row.
    void StampId();
    /// Stamps the rows and writes them to the table. Raises OverflowFailure above 32767 rows.
    void SaveBody();
    /// Rows to be saved, whatever filter was left on.
    int CountRows();

    Txt& CodeControl() const { return *code_; }
    Txt& LastControl() const { return *is_.Last; }
    Grid& Rows() const { return grid_; }

private:
    QString currentId() const;
    bool isBlank(int row) const;
    void appendBlankRow();
    void openCode(bool open);
    void filterTo(const QString& code);
    void lastLeft();
    void attach();

    VoucherForm& form_;
    Grid& grid_;
    DetailDeclaration is_;
    Txt* code_ = nullptr;
    QString codeColumn_;
    const char* codeBodyColumn_ = nullptr;
};

} // namespace TradeForms
