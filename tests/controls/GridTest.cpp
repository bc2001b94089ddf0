#include "Desk.h"

#include "controls/Look.h"

#include <QHeaderView>
#include <QImage>
#include <QScrollBar>

#include <stdexcept>

namespace TradeForms {

namespace {

QList<GridColumn> columns()
{
    return {{s("Qty"), {"تعداد", "Quantity"}, StyleSet::ColEng, 80, false, true},
            {s("Name"), {"نام", "Name"}, StyleSet::ColUrdu, 100, true},
            {s("ID"), {"کوڈ", "Code"}, StyleSet::ColEng, 80}};
}

class Numbers : public GridSource {
public:
    explicit Numbers(int count) : rows(count) {}
    int RowCount() const override { return rows; }
    QString Text(int row, int column) const override
    {
        ++asked;
        return QString::number(row) + QLatin1Char(':') + QString::number(column);
    }

    int rows;
    mutable int asked = 0;
};

} // namespace

class GridTest : public DeskTest {
protected:
    GridTest()
    {
        desk.Rows.SetColumns(columns());
        desk.Rows.OnRowChange += [this] { rowChanges << desk.Rows.Row(); };
    }

    void fill(int rows)
    {
        for (int i = 0; i < rows; ++i)
            grid.SetCell(grid.AddRow(), s("ID"), s("P%1").arg(i));
        rowChanges.clear();
    }

    void enter()
    {
        desk.SetFocus(grid);
        desk.TakeLog();
    }

    QStringList ids() const
    {
        QStringList all;
        for (int i = 0; i < grid.RowCount(); ++i)
            all << grid.Cell(i, s("ID"));
        return all;
    }

    /// Returns the picture of a painted cell.
    QImage painted(int row, const char* column)
    {
        const QModelIndex index = grid.model()->index(row, grid.ColumnIndex(s(column)));
        return grid.viewport()->grab(grid.visualRect(index)).toImage();
    }
    /// Returns the first and last x position of a cell's text, from the left edge of the cell.
    std::pair<int, int> inkOf(int row, const char* column)
    {
        const QImage cell = painted(row, column);
        std::pair<int, int> ink(-1, -1);
        for (int x = 0; x < cell.width(); ++x) {
            for (int y = 0; y < cell.height(); ++y) {
                if (qGray(cell.pixel(x, y)) >= 130)
                    continue;
                ink.first = ink.first < 0 ? x : ink.first;
                ink.second = x;
            }
        }
        return ink;
    }

    Grid& grid = desk.Rows;
    QList<int> rowChanges;
};

/// Counts how often a widget is painted.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

TEST_F(GridTest, RowsHoldTextByColumnName)
{
    const int row = grid.AddRow();
    EXPECT_EQ(row, 0);
    grid.SetCell(row, s("id"), s(" "));
    grid.SetCell(row, s("NAME"), s("موٹر"));
    EXPECT_EQ(grid.Cell(row, s("ID")), s(" "));
    EXPECT_EQ(grid.Cell(row, s("name")), s("موٹر"));
    EXPECT_EQ(grid.Cell(row, s("Qty")), QString());
    EXPECT_EQ(grid.AddRow(), 1);
    EXPECT_EQ(grid.RowCount(), 2);
    EXPECT_EQ(grid.ColumnIndex(s("ID")), 2);
}

TEST_F(GridTest, WrongColumnOrRowRaises)
{
    fill(1);
    EXPECT_THROW(grid.ColumnIndex(s("Nothing")), std::out_of_range);
    EXPECT_THROW(grid.Cell(0, s("Nothing")), std::out_of_range);
    EXPECT_THROW(grid.Cell(1, s("ID")), std::out_of_range);
    EXPECT_THROW(grid.Cell(-1, s("ID")), std::out_of_range);
    EXPECT_THROW(grid.SetCell(1, s("ID"), {}), std::out_of_range);
    EXPECT_THROW(grid.SetRow(1), std::out_of_range);
    EXPECT_THROW(grid.SelectRow(-1), std::out_of_range);
}

TEST_F(GridTest, FirstRowOfAnEmptyGridBecomesCurrent)
{
    EXPECT_EQ(grid.Row(), -1);
    grid.AddRow();
    grid.AddRow();
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(rowChanges, QList<int>{0});
}

TEST_F(GridTest, ProgramMovesTheCurrentRow)
{
    fill(5);
    grid.MoveLast();
    grid.SetRow(2);
    grid.SetRow(2);
    grid.MoveFirst();
    EXPECT_EQ(rowChanges, (QList<int>{4, 2, 0}));
    grid.RemoveAllRows();
    rowChanges.clear();
    grid.MoveLast();
    grid.MoveFirst();
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_TRUE(rowChanges.isEmpty());
}

TEST_F(GridTest, UserMovesTheCurrentRowByKeys)
{
    fill(100);
    enter();
    const auto rowAfter = [this](Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        Press(desk, key, with);
        return grid.Row();
    };
    EXPECT_EQ(rowAfter(Qt::Key_Down), 1);
    EXPECT_EQ(rowAfter(Qt::Key_Left), 1);
    EXPECT_EQ(rowAfter(Qt::Key_Right), 1);
    EXPECT_EQ(rowAfter(Qt::Key_End), 99);
    EXPECT_EQ(rowAfter(Qt::Key_Down), 99);
    // Paging keeps the row that was last in view visible.
    const int page = grid.viewport()->height() / grid.rowHeight(0) - 1;
    ASSERT_GT(page, 2);
    EXPECT_EQ(rowAfter(Qt::Key_PageUp), 99 - page);
    EXPECT_EQ(rowAfter(Qt::Key_Home), 0);
    EXPECT_EQ(rowAfter(Qt::Key_Up), 0);
    EXPECT_EQ(rowAfter(Qt::Key_PageDown), page);
    EXPECT_EQ(rowAfter(Qt::Key_PageUp), 0);
    EXPECT_EQ(rowAfter(Qt::Key_Home, Qt::ControlModifier), 0);
    EXPECT_EQ(rowAfter(Qt::Key_End, Qt::ControlModifier), 99);
    EXPECT_EQ(grid.SelectedRows(), QList<int>{99});
    EXPECT_TRUE(IsActive(grid));
}

TEST_F(GridTest, EachMoveIsToldOnce)
{
    fill(3);
    enter();
    Press(desk, Qt::Key_Down);
    Press(desk, Qt::Key_Down);
    Press(desk, Qt::Key_Down);
    EXPECT_EQ(rowChanges, (QList<int>{1, 2}));
}

TEST_F(GridTest, ClickMakesARowCurrentAndSelectsIt)
{
    fill(5);
    ClickRow(desk, grid, 3);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.SelectedRows(), QList<int>{3});
    EXPECT_TRUE(IsActive(grid));
}

TEST_F(GridTest, SelectionIsTheProgramsToMake)
{
    fill(5);
    grid.SelectRow(2);
    EXPECT_EQ(grid.SelectedRows(), QList<int>{2});
    EXPECT_EQ(grid.Row(), 0);
    grid.SetRow(4);
    EXPECT_EQ(grid.SelectedRows(), QList<int>{2});
    grid.ClearSelection();
    EXPECT_TRUE(grid.SelectedRows().isEmpty());
    EXPECT_EQ(grid.Row(), 4);
}

TEST_F(GridTest, DeleteSelectedTellsBeforeAndMovesToTheRowThatMovedUp)
{
    fill(3);
    grid.SetRow(1);
    grid.SelectRow(1);
    rowChanges.clear();
    QStringList before;
    grid.OnBeforeDelete += [&] { before = ids(); };
    grid.DeleteSelected();
    EXPECT_EQ(before, (QStringList{s("P0"), s("P1"), s("P2")}));
    EXPECT_EQ(ids(), (QStringList{s("P0"), s("P2")}));
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(rowChanges, QList<int>{1});
}

TEST_F(GridTest, DeleteSelectedDeletesThoseOfSeveralRowsThatAreSelected)
{
    fill(5);
    for (const int row : {0, 2})
        grid.SelectRow(row);
    grid.DeleteSelected();
    EXPECT_EQ(ids(), (QStringList{s("P1"), s("P3"), s("P4")}));
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, DeletingTheLastRowMovesToTheOneAbove)
{
    fill(2);
    grid.SelectRow(1);
    grid.DeleteSelected();
    EXPECT_EQ(grid.Row(), 0);
    grid.ClearSelection();
    grid.SelectRow(0);
    rowChanges.clear();
    grid.DeleteSelected();
    EXPECT_EQ(grid.RowCount(), 0);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_TRUE(rowChanges.isEmpty());
}

TEST_F(GridTest, DeletingNothingTellsNothing)
{
    fill(2);
    grid.ClearSelection();
    grid.OnBeforeDelete += [] { ADD_FAILURE(); };
    grid.DeleteSelected();
    EXPECT_EQ(grid.RowCount(), 2);
}

TEST_F(GridTest, TypedKeysGoToTheHandlerAndMoveNothing)
{
    fill(5);
    enter();
    QStringList typed;
    grid.OnKeyPress += [&](const QString& text) { typed << text; };
    Type(desk, "P3 ");
    EXPECT_EQ(typed, (QStringList{s("P"), s("3"), s(" ")}));
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, TypedKeyMayGoOnInAField)
{
    fill(5);
    enter();
    grid.OnKeyPress += [this](const QString& text) {
        desk.A.SetText(text);
        desk.SetFocus(desk.A);
    };
    Type(desk, "12");
    EXPECT_EQ(desk.A.Text(), s("12"));
}

TEST_F(GridTest, RightPressComesWithTheRowUnderIt)
{
    fill(5);
    QList<int> rows;
    QPoint where;
    grid.OnRightPress += [&](const QPoint& position) {
        rows << grid.Row();
        where = position;
    };
    ClickRow(desk, grid, 3, Qt::RightButton);
    EXPECT_EQ(rows, QList<int>{3});
    EXPECT_TRUE(QRect(desk.pos(), desk.size()).contains(where));
    Press(desk, Qt::Key_Menu);
    Press(desk, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(rows, (QList<int>{3, 3, 3}));
    EXPECT_TRUE(QRect(desk.pos(), desk.size()).contains(where));
}

TEST_F(GridTest, TheMenusKeysAreToldOnceInWhicheverWayTheSystemTellsThem)
{
    fill(5);
    enter();
    grid.SetRow(2);
    QList<QPoint> told;
    grid.OnRightPress += [&](const QPoint& position) { told << position; };
    const auto tell = [&](Qt::KeyboardModifiers modifiers) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint(), modifiers);
        QApplication::sendEvent(grid.viewport(), &event);
        EXPECT_TRUE(event.isAccepted());
    };
    // Some systems send both a key event and a context menu event for the menu key.
    Press(desk, Qt::Key_Menu);
    tell(Qt::NoModifier);
    EXPECT_EQ(told.size(), 1);
    // Others send only a context menu event for Shift+F10.
    tell(Qt::ShiftModifier);
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told.at(1), told.at(0));
}

TEST_F(GridTest, DoubleClickOnARow)
{
    fill(5);
    int row = -1;
    grid.OnDoubleClick += [&] { row = grid.Row(); };
    DoubleClickRow(desk, grid, 2);
    EXPECT_EQ(row, 2);
}

TEST_F(GridTest, DoubleClickBelowTheRowsCountsAndLeavesTheCurrentRow)
{
    fill(2);
    grid.SetRow(1);
    int row = -1;
    grid.OnDoubleClick += [&] { row = grid.Row(); };
    DoubleClick(desk, grid);
    EXPECT_EQ(row, 1);
}

TEST_F(GridTest, DoubleClickWithTheRightButtonIsNone)
{
    fill(2);
    grid.OnDoubleClick += [] { ADD_FAILURE() << "double click"; };
    DoubleClick(desk, grid, Qt::RightButton);
}

TEST_F(GridTest, RedrawIsSuspendedAndResumed)
{
    grid.SetRedraw(false);
    EXPECT_FALSE(grid.Redraw());
    EXPECT_FALSE(grid.viewport()->updatesEnabled());
    fill(3);
    grid.SetRedraw(true);
    EXPECT_TRUE(grid.Redraw());
    EXPECT_TRUE(grid.viewport()->updatesEnabled());
    EXPECT_EQ(grid.RowCount(), 3);
}

TEST_F(GridTest, HiddenColumnKeepsItsText)
{
    grid.SetColumnHidden(s("id"), true);
    fill(1);
    EXPECT_TRUE(grid.isColumnHidden(2));
    EXPECT_EQ(grid.Cell(0, s("ID")), s("P0"));
    grid.SetColumnHidden(s("qty"), true);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, StretchedColumnFillsTheWidth)
{
    int all = 0;
    for (int i = 0; i < 3; ++i)
        all += grid.columnWidth(i);
    EXPECT_EQ(all, grid.viewport()->width());
    EXPECT_EQ(grid.columnWidth(0), 80);
    const int before = grid.columnWidth(1);
    desk.resize(desk.width() + 100, desk.height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid.columnWidth(1) == before + 100; }))
        << grid.columnWidth(1);
    EXPECT_EQ(grid.columnWidth(0), 80);
}

TEST_F(GridTest, ColumnsThatStretchShareTheRoomThatIsLeft)
{
    QList<GridColumn> two = columns();
    two[2].Stretch = true;
    grid.SetColumns(two);
    const int spare = grid.viewport()->width() - 80 - 100 - 80;
    ASSERT_GT(spare, 2);
    EXPECT_EQ(grid.columnWidth(0), 80);
    EXPECT_EQ(grid.columnWidth(1), 100 + spare / 2);
    EXPECT_EQ(grid.columnWidth(2), 80 + spare - spare / 2);
}

TEST_F(GridTest, MovingFromRowToRowScrollsNotSideways)
{
    QList<GridColumn> wide = columns();
    wide[0].Width = 600;
    grid.SetColumns(wide);
    fill(100);
    QScrollBar& bar = *grid.horizontalScrollBar();
    ASSERT_GT(bar.maximum(), 100);
    for (const int sideways : {0, 100, bar.maximum()}) {
        bar.setValue(sideways);
        grid.MoveLast();
        EXPECT_EQ(bar.value(), sideways);
        grid.MoveFirst();
        EXPECT_EQ(bar.value(), sideways);
    }
}

// ---- What is seen

TEST_F(GridTest, NumbersAndUrduStandAtTheRightOfTheirColumnsAndCodesAtTheLeft)
{
    grid.AddRow();
    grid.SetCell(0, s("Qty"), s("12"));
    grid.SetCell(0, s("Name"), s("موٹر"));
    grid.SetCell(0, s("ID"), s("12"));
    const auto [quantity, quantityEnd] = inkOf(0, "Qty");
    EXPECT_GT(quantity, 40);
    EXPECT_GT(quantityEnd, 65);
    const auto [name, nameEnd] = inkOf(0, "Name");
    EXPECT_GT(name, grid.columnWidth(1) / 2);
    EXPECT_GT(nameEnd, grid.columnWidth(1) - 15);
    const auto [code, codeEnd] = inkOf(0, "ID");
    EXPECT_LT(code, 15);
    EXPECT_LT(codeEnd, 40);
}

TEST_F(GridTest, TheCurrentRowIsMarkedMoreWhereTheGridHasTheFocus)
{
    fill(4);
    grid.SetRow(2);
    const auto ground = [this](int row) { return painted(row, "Name").pixelColor(3, 3); };
    EXPECT_EQ(ground(0), Look::FieldBackground());
    EXPECT_EQ(ground(1), Look::AlternateRow());
    EXPECT_EQ(ground(2), Look::EntryBackground());
    enter();
    EXPECT_EQ(ground(2), Look::Selection());
    Press(desk, Qt::Key_Up);
    EXPECT_EQ(ground(1), Look::Selection());
    EXPECT_EQ(ground(2), Look::FieldBackground());
}

TEST_F(GridTest, TheHeaderShowsBothCaptions)
{
    const auto header = [this](const char* urdu, const char* english) {
        grid.SetColumns({{s("ID"), {urdu, english}}});
        return grid.horizontalHeader()->grab().toImage();
    };
    const QImage both = header("کوڈ", "Code");
    EXPECT_EQ(header("کوڈ", "Code"), both);
    EXPECT_NE(header("نام", "Code"), both);
    EXPECT_NE(header("کوڈ", "Name"), both);
}

TEST_F(GridTest, SourceIsShownFromItsFirstRow)
{
    Numbers source(3);
    grid.SetSource(&source);
    EXPECT_EQ(grid.RowCount(), 3);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.Cell(2, s("ID")), s("2:2"));
    grid.MoveLast();
    rowChanges.clear();
    source.rows = 10;
    grid.SourceChanged();
    EXPECT_EQ(grid.RowCount(), 10);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(rowChanges, QList<int>{0});
    source.rows = 0;
    grid.SourceChanged();
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(rowChanges, QList<int>{0});
    grid.SetSource(nullptr);
    EXPECT_EQ(grid.RowCount(), 0);
}

TEST_F(GridTest, ASourceWithMoreOrFewerRowsIsPaintedOnceAndMovesNoColumn)
{
    Numbers source(0);
    grid.SetSource(&source);
    QCoreApplication::processEvents();
    const int nameWidth = grid.columnWidth(1);
    PaintCount paints(*grid.viewport());
    for (const int rows : {500, 3, 0, 500}) {
        source.rows = rows;
        grid.SourceChanged();
        paints.count = 0;
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
        EXPECT_EQ(paints.count, 1) << rows;
        EXPECT_EQ(grid.columnWidth(1), nameWidth) << rows;
        EXPECT_FALSE(grid.horizontalScrollBar()->isVisible()) << rows;
    }
    grid.SetSource(nullptr);
}

TEST_F(GridTest, ATextWithLinesIsPaintedInOneAndBlanksBehindItMoveNothing)
{
    grid.AddRow();
    const auto painted = [&](const char* name, const char* code) {
        grid.SetCell(0, s("Name"), s(name));
        grid.SetCell(0, s("ID"), s(code));
        return grid.viewport()->grab().toImage();
    };
    const QImage plain = painted("محمد اسلم ولد", "12 B");
    EXPECT_EQ(painted("محمد\nاسلم\tولد  ", "12\r\u2028B \n"), painted("محمد اسلم ولد", "12  B"));
    EXPECT_EQ(painted("محمد\nاسلم\tولد  ", "12\nB\n"), plain);
    EXPECT_NE(painted("محمد اسلم", "12 B"), plain);
}

TEST_F(GridTest, BoundGridTakesNoRows)
{
    Numbers source(3);
    grid.SetSource(&source);
    EXPECT_THROW(grid.AddRow(), std::logic_error);
    EXPECT_THROW(grid.SetCell(0, s("ID"), {}), std::logic_error);
    grid.SelectRow(0);
    EXPECT_THROW(grid.DeleteSelected(), std::logic_error);
    EXPECT_EQ(grid.RowCount(), 3);
}

TEST_F(GridTest, AMillionRowsCostNoMoreThanThoseThatAreSeen)
{
    Numbers source(1'000'000);
    grid.SetSource(&source);
    grid.MoveLast();
    desk.grab();
    EXPECT_LT(source.asked, 500);
    EXPECT_EQ(grid.Row(), 999'999);
    source.asked = 0;
    grid.SourceChanged();
    grid.MoveLast();
    desk.grab();
    EXPECT_LT(source.asked, 500);
}

TEST_F(GridTest, FailureInAHandlerEndsInHandlerFailed)
{
    fill(3);
    enter();
    grid.OnRowChange += [] { throw std::runtime_error("row"); };
    grid.OnKeyPress += [](const QString&) { throw std::runtime_error("key"); };
    grid.OnRightPress += [](const QPoint&) { throw std::runtime_error("right"); };
    grid.OnDoubleClick += [] { throw std::runtime_error("double"); };
    grid.OnBeforeDelete += [] { throw std::runtime_error("delete"); };
    Press(desk, Qt::Key_Down);
    Type(desk, "x");
    Press(desk, Qt::Key_Menu);
    DoubleClickRow(desk, grid, 1);
    grid.OnRowChange.Clear();
    grid.DeleteSelected();
    EXPECT_EQ(desk.failures,
              (QStringList{s("row"), s("key"), s("right"), s("double"), s("delete")}));
}

} // namespace TradeForms
