#pragma once

#include "controls/Caption.h"
#include "controls/Control.h"

#include <QList>
#include <QString>
#include <QStringView>
#include <QTableView>

#include <memory>

namespace TradeForms {

/// How a column's text is set: names in Urdu, codes and numbers in Latin type.
enum class StyleSet { ColUrdu, ColEng };

struct GridColumn {
    QString Name; ///< looked up without regard to case
    TradeForms::Caption Caption;
    StyleSet Style = StyleSet::ColEng;
    int Width = 100; ///< pixels at 100 %, a minimum
    bool Stretch = false;
    bool Number = false; ///< right-aligned
};

/// Rows that a grid shows but does not hold.
class GridSource {
public:
    virtual ~GridSource();
    virtual int RowCount() const = 0;
    /// Text of a cell; column is the index in the grid's columns.
    virtual QString Text(int row, int column) const = 0;
};

/// A list of rows with a current row. Unbound, its rows are added by the program and hold text;
/// bound, it shows a GridSource. The user cannot edit a cell. It is one control: Tab leaves it,
/// the arrow keys, Page, Home and End move the current row.
///
/// Voucher grids lay their columns from left to right; lists of Urdu text from right to left.
class Grid : public QTableView, public Control {
    Q_OBJECT
public:
    explicit Grid(const QString& name = QStringLiteral("Grid"), QWidget* parent = nullptr);
    ~Grid() override;

    void SetColumns(const QList<GridColumn>& columns);
    const QList<GridColumn>& Columns() const;
    /// Index of a column, without regard to case. Raises std::out_of_range for an unknown name.
    int ColumnIndex(QStringView name) const;
    void SetColumnHidden(QStringView name, bool hidden);

    // Unbound rows.
    /// A row of empty texts at the end; gives its index. In an empty grid it becomes current.
    int AddRow();
    void RemoveAllRows();
    /// Text of a cell, of a bound grid too. Raises std::out_of_range for a row that is none.
    QString Cell(int row, QStringView column) const;
    /// Raises std::out_of_range for a row that is none.
    void SetCell(int row, QStringView column, const QString& text);

    // Bound rows. The source must outlive its use here; null unbinds.
    void SetSource(GridSource* source);
    /// The source has new rows: the first becomes current.
    void SourceChanged();

    int RowCount() const;
    /// The current row, or -1 where there is none.
    int Row() const;
    /// Makes a row current and brings it into view; the selection stays as it is. Raises
    /// std::out_of_range for a row that is none.
    void SetRow(int row);
    /// The first or last row becomes current; an empty grid stays as it is.
    void MoveFirst();
    void MoveLast();

    // Selection by row; the bookmark of a row is its index.
    void ClearSelection();
    void SelectRow(int row);
    QList<int> SelectedRows() const;
    /// Deletes the selected rows of an unbound grid. OnBeforeDelete runs first; afterwards the
    /// row that moved up is current, or the last one.
    void DeleteSelected();

    /// Brings a row into view; does not scroll sideways.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    /// Suspends and resumes painting. Not nested.
    void SetRedraw(bool redraw);
    bool Redraw() const;

    /// Another row became current, by the user or by the program. Does not run when the grid
    /// becomes empty.
    Event<> OnRowChange;
    Event<> OnBeforeDelete;
    /// Anywhere in the grid, below its rows too.
    Event<> OnDoubleClick;
    /// Right mouse button on the grid, or the menu key in it; the row under it is current
    /// by then. The position is in screen coordinates.
    Event<QPoint> OnRightPress;
    /// A key typed in the grid, before the grid acts on it.
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
    bool removing_ = false; ///< rows are going; which one is current is told afterwards
};

} // namespace TradeForms
