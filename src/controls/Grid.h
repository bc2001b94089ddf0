#pragma once

#include "controls/Caption.h"
#include "controls/Control.h"

#include <QList>
#include <QString>
#include <QStringView>
#include <QTableView>

#include <memory>

namespace TradeForms {

/// Type style of a column: Urdu for names, Latin for codes and numbers.
enum class StyleSet { ColUrdu, ColEng };

struct GridColumn {
    QString Name; ///< case-insensitive
    TradeForms::Caption Caption;
    StyleSet Style = StyleSet::ColEng;
    int Width = 100; ///< minimum, in pixels at 100 % scaling
    bool Stretch = false;
    bool Number = false; ///< right-aligned
};

/// Data source of a bound grid.
class GridSource {
public:
    virtual ~GridSource();
    virtual int RowCount() const = 0;
    /// Text of a cell; column is an index into the grid's columns.
    virtual QString Text(int row, int column) const = 0;
};

/// A read-only list of rows with a current row. An unbound grid holds rows of text that the program
/// adds; a bound grid shows a GridSource. The grid is a single tab stop; the arrow keys, Page Up,
/// Page Down, Home and End move the current row.
///
/// Voucher grids arrange their columns from left to right; lists of Urdu text, from right to left.
class Grid : public QTableView, public Control {
    Q_OBJECT
public:
    explicit Grid(const QString& name = QStringLiteral("Grid"), QWidget* parent = nullptr);
    ~Grid() override;

    void SetColumns(const QList<GridColumn>& columns);
    const QList<GridColumn>& Columns() const;
    /// Index of a column; the name is case-insensitive. Raises std::out_of_range for an unknown
    /// name.
    int ColumnIndex(QStringView name) const;
    void SetColumnHidden(QStringView name, bool hidden);

    // Unbound rows.
    /// Appends a row of empty texts and returns its index. The first row of an empty grid becomes
    /// current.
    int AddRow();
    void RemoveAllRows();
    /// Text of a cell of an unbound or bound grid. Raises std::out_of_range for a row or column
    /// that does not exist.
    QString Cell(int row, QStringView column) const;
    /// Sets the text of a cell of an unbound grid. Raises std::out_of_range for a row or column
    /// that does not exist.
    void SetCell(int row, QStringView column, const QString& text);

    // Bound rows. The source must outlive its use by the grid; null unbinds.
    void SetSource(GridSource* source);
    /// To be called when the rows of the source have changed. Makes the first row current.
    void SourceChanged();

    int RowCount() const;
    /// Index of the current row, or -1 if there is none.
    int Row() const;
    /// Makes a row current and scrolls it into view; the selection does not change. Raises
    /// std::out_of_range for a row that does not exist.
    void SetRow(int row);
    /// Makes the first or last row current; does nothing in an empty grid.
    void MoveFirst();
    void MoveLast();

    // Selection of whole rows, identified by their indexes.
    void ClearSelection();
    void SelectRow(int row);
    QList<int> SelectedRows() const;
    /// Deletes the selected rows of an unbound grid after firing OnBeforeDelete. Then the row that
    /// took the place of the deleted ones is current, or the last row.
    void DeleteSelected();

    /// Scrolls a row into view vertically; never scrolls sideways.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    /// Suspends (false) or resumes (true) painting. Calls do not nest.
    void SetRedraw(bool redraw);
    bool Redraw() const;

    /// Another row became current, by the user or by the program. Not fired when the grid becomes
    /// empty.
    Event<> OnRowChange;
    Event<> OnBeforeDelete;
    /// A double-click anywhere in the grid, including the area below its rows.
    Event<> OnDoubleClick;
    /// The right mouse button was pressed on the grid, or the menu key in it. The row under the
    /// mouse is already current. The position is in screen coordinates.
    Event<QPoint> OnRightPress;
    /// A key was typed in the grid; fired before the grid handles it.
    Event<QString> OnKeyPress;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& search) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    class Model;
    class Delegate;
    class Header;

    void RequireRow(int row) const;
    QModelIndex RowIndex(int row) const;
    void PressMenuKey();
    void PressRight(const QPoint& position);
    void LayOutColumns();

    std::unique_ptr<Model> model_;
    bool redraw_ = true;
    bool removing_ = false; ///< rows are being deleted; OnRowChange is fired afterwards
};

} // namespace TradeForms
