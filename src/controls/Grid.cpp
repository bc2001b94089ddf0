#include "controls/Grid.h"

#include "controls/Look.h"
#include "controls/Utf8.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStaticText>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <stdexcept>

namespace TradeForms {

namespace {

const int kFrame = 2; ///< room for the focus ring
const int kCellPadding = 8;

QFont fontOf(const GridColumn& column)
{
    return column.Style == StyleSet::ColUrdu ? Look::UrduFont() : Look::LatinFont();
}

QColor lineColor()
{
    return Look::HeaderBackground();
}

} // namespace

GridSource::~GridSource() = default;

class Grid::Model : public QAbstractTableModel {
public:
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : source ? sourceRows : int(rows.size());
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(columns.size());
    }

    QString Text(int row, int column) const
    {
        return source ? source->Text(row, column) : rows[row][column];
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole ? Text(index.row(), index.column()) : QVariant();
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
            return {};
        return utf8(columns[section].Caption.English);
    }

    /// Applies a change of columns, source or rows within a model reset.
    template <typename Change> void Reset(Change change)
    {
        beginResetModel();
        change();
        sourceRows = source ? source->RowCount() : 0;
        endResetModel();
    }

    int Append()
    {
        const int row = int(rows.size());
        beginInsertRows({}, row, row);
        rows.append(QStringList(columns.size()));
        endInsertRows();
        return row;
    }

    void Remove(int row)
    {
        beginRemoveRows({}, row, row);
        rows.removeAt(row);
        endRemoveRows();
    }

    void Set(int row, int column, const QString& text)
    {
        rows[row][column] = text;
        const QModelIndex changed = index(row, column);
        emit dataChanged(changed, changed, {Qt::DisplayRole});
    }

    QList<GridColumn> columns;
    QList<QStringList> rows;
    GridSource* source = nullptr;
    int sourceRows = 0;
};

class Grid::Delegate : public QStyledItemDelegate {
public:
    explicit Delegate(Grid& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const GridColumn& column = grid_.Columns()[index.column()];
        const bool marked = index.row() == grid_.currentIndex().row() ||
                            option.state.testFlag(QStyle::State_Selected);
        QColor ground = index.row() % 2 == 0 ? Look::FieldBackground() : Look::AlternateRow();
        if (marked)
            ground = grid_.hasFocus() ? Look::Selection() : Look::EntryBackground();
        painter->fillRect(option.rect, ground);
        painter->setPen(lineColor());
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        painter->drawLine(option.rect.topRight(), option.rect.bottomRight());

        const bool right = column.Number || column.Style == StyleSet::ColUrdu;
        const QRect room = option.rect.adjusted(kCellPadding, 0, -kCellPadding, 0);
        painter->setPen(grid_.isEnabled() ? Look::Text() : Look::DisabledText());
        paintLine(*painter, room, grid_.model_->Text(index.row(), index.column()), fontOf(column),
                  right);
    }

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        return {grid_.Columns()[index.column()].Width,
                grid_.verticalHeader()->defaultSectionSize()};
    }

private:
    /// Paints a text in one line, elided where it does not fit. The text is shaped only once:
    /// QFontMetrics::elidedText followed by drawText would shape it twice, and shaping takes most
    /// of the time of painting a list.
    static void paintLine(QPainter& painter, const QRect& room, QString text, const QFont& font,
                          bool right)
    {
        // Line breaks and tabs are shown as spaces.
        std::replace_if(
            text.begin(), text.end(), [](QChar letter) { return letter.isSpace(); }, u' ');
        // Trailing spaces are invisible, but would shift a right-to-left text.
        while (text.endsWith(u' '))
            text.chop(1);
        QTextLayout layout(text, font);
        QTextLine line = laidOut(layout, painter.layoutDirection());
        if (line.horizontalAdvance() > room.width()) {
            layout.setText(QFontMetrics(font).elidedText(text, Qt::ElideRight, room.width()));
            line = laidOut(layout, painter.layoutDirection());
        }
        const qreal spareWidth = right ? room.width() - line.horizontalAdvance() : 0;
        const qreal spareHeight = room.height() - qCeil(line.height());
        layout.draw(&painter, room.topLeft() + QPointF(spareWidth, spareHeight / 2));
    }

    static QTextLine laidOut(QTextLayout& layout, Qt::LayoutDirection direction)
    {
        QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
        option.setWrapMode(QTextOption::NoWrap);
        option.setTextDirection(direction);
        layout.setTextOption(option);
        layout.setCacheEnabled(true);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        return line;
    }

    Grid& grid_;
};

/// Two-line column captions, Urdu above English.
class Grid::Header : public QHeaderView {
public:
    explicit Header(Grid& grid) : QHeaderView(Qt::Horizontal, &grid), grid_(grid)
    {
        Look::Dress(*this, Look::CaptionUrdu());
        setSectionResizeMode(QHeaderView::Fixed);
        setMinimumSectionSize(1);
        setSectionsClickable(false);
        setHighlightSections(false);
    }

    QSize sizeHint() const override
    {
        // The table uses only the height; computing the width of all captions would be slow.
        return {0, UrduHeight() + LatinHeight() + 4};
    }

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override
    {
        const GridColumn& column = grid_.Columns()[section];
        painter->fillRect(rect, Look::HeaderBackground());
        painter->setPen(Look::Border());
        painter->drawLine(rect.topRight(), rect.bottomRight());
        painter->drawLine(rect.bottomLeft(), rect.bottomRight());
        painter->setPen(Look::Text());
        paintCaption(*painter, QRect(rect.left(), rect.top() + 1, rect.width(), UrduHeight()),
                     utf8(column.Caption.Urdu), Look::CaptionUrdu());
        painter->setPen(Look::MutedText());
        paintCaption(*painter,
                     QRect(rect.left(), rect.top() + 1 + UrduHeight(), rect.width(), LatinHeight()),
                     utf8(column.Caption.English), Look::CaptionLatin());
    }

    void paintEvent(QPaintEvent* event) override
    {
        {
            QPainter painter(viewport());
            painter.fillRect(viewport()->rect(), Look::HeaderBackground());
        }
        QHeaderView::paintEvent(event);
    }

private:
    /// The captions do not change, so their shaped layout is cached.
    void paintCaption(QPainter& painter, const QRect& room, const QString& text,
                      const QFont& font) const
    {
        QStaticText& caption = captions_[text];
        if (caption.text() != text) {
            caption.setTextFormat(Qt::PlainText);
            caption.setText(text);
            caption.prepare({}, font);
        }
        painter.setFont(font);
        painter.drawStaticText(
            QPointF(room.left() + (room.width() - caption.size().width()) / 2, room.top()),
            caption);
    }

    static int UrduHeight() { return QFontMetrics(Look::CaptionUrdu()).height(); }
    static int LatinHeight() { return QFontMetrics(Look::CaptionLatin()).height(); }

    Grid& grid_;
    mutable QHash<QString, QStaticText> captions_;
};

Grid::Grid(const QString& name, QWidget* parent)
    : QTableView(parent), Control(static_cast<QWidget&>(*this)), model_(std::make_unique<Model>())
{
    SetName(name);
    Look::Dress(*this, Look::LatinFont());
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        Look::Dress(*bar, Look::LatinFont());

    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(kFrame);
    setShowGrid(false); // the delegate draws the lines
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setHorizontalHeader(new Header(*this));

    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(QFontMetrics(Look::UrduFont()).height() + 2);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);

    setItemDelegate(new Delegate(*this));
    setModel(model_.get());
}

Grid::~Grid()
{
    // The model is destroyed before the base class's view.
    setModel(nullptr);
}

void Grid::SetColumns(const QList<GridColumn>& columns)
{
    model_->Reset([&] {
        model_->columns = columns;
        model_->rows.clear();
    });
    LayOutColumns();
}

const QList<GridColumn>& Grid::Columns() const
{
    return model_->columns;
}

int Grid::ColumnIndex(QStringView name) const
{
    const auto& columns = model_->columns;
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const GridColumn& column) {
        return name.compare(column.Name, Qt::CaseInsensitive) == 0;
    });
    if (found == columns.end())
        throw std::out_of_range("No column " + name.toString().toStdString());
    return int(found - columns.begin());
}

void Grid::SetColumnHidden(QStringView name, bool hidden)
{
    setColumnHidden(ColumnIndex(name), hidden);
    LayOutColumns();
}

int Grid::AddRow()
{
    if (model_->source)
        throw std::logic_error("A bound grid takes no rows");
    const int row = model_->Append();
    if (row == 0)
        SetRow(0);
    return row;
}

void Grid::RemoveAllRows()
{
    model_->Reset([&] { model_->rows.clear(); });
}

QString Grid::Cell(int row, QStringView column) const
{
    RequireRow(row);
    return model_->Text(row, ColumnIndex(column));
}

void Grid::SetCell(int row, QStringView column, const QString& text)
{
    if (model_->source)
        throw std::logic_error("A bound grid takes no texts");
    RequireRow(row);
    model_->Set(row, ColumnIndex(column), text);
}

void Grid::SetSource(GridSource* source)
{
    model_->source = source;
    // A list filtered while typing keeps changing its length. A scroll bar that appears and
    // disappears would each time cause a new column layout and a second repaint.
    setVerticalScrollBarPolicy(source ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
    SourceChanged();
}

void Grid::SourceChanged()
{
    model_->Reset([] {});
    // Lay out now, or the list is painted once before and once after the layout. The first layout
    // changes the header's section count, which schedules a second one.
    executeDelayedItemsLayout();
    executeDelayedItemsLayout();
    MoveFirst();
}

int Grid::RowCount() const
{
    return model_->rowCount();
}

int Grid::Row() const
{
    return currentIndex().row();
}

void Grid::SetRow(int row)
{
    RequireRow(row);
    selectionModel()->setCurrentIndex(RowIndex(row), QItemSelectionModel::NoUpdate);
}

void Grid::MoveFirst()
{
    if (RowCount() > 0)
        SetRow(0);
}

void Grid::MoveLast()
{
    if (RowCount() > 0)
        SetRow(RowCount() - 1);
}

void Grid::ClearSelection()
{
    selectionModel()->clearSelection();
}

void Grid::SelectRow(int row)
{
    RequireRow(row);
    selectionModel()->select(RowIndex(row),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

QList<int> Grid::SelectedRows() const
{
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void Grid::DeleteSelected()
{
    if (model_->source)
        throw std::logic_error("A bound grid loses no rows");
    if (SelectedRows().isEmpty())
        return;
    Fire(OnBeforeDelete);
    const QList<int> rows = SelectedRows();
    if (rows.isEmpty())
        return;
    {
        const QScopedValueRollback<bool> quiet(removing_, true);
        for (auto row = rows.rbegin(); row != rows.rend(); ++row)
            model_->Remove(*row);
        if (RowCount() > 0)
            SetRow(std::min(rows.front(), RowCount() - 1));
    }
    if (RowCount() > 0)
        Fire(OnRowChange);
}

void Grid::SetRedraw(bool redraw)
{
    redraw_ = redraw;
    setUpdatesEnabled(redraw);
}

bool Grid::Redraw() const
{
    return redraw_;
}

void Grid::RequireRow(int row) const
{
    if (row < 0 || row >= RowCount())
        throw std::out_of_range("No row " + std::to_string(row));
}

QModelIndex Grid::RowIndex(int row) const
{
    int column = 0;
    while (column + 1 < model_->columnCount() && isColumnHidden(column))
        ++column;
    return model_->index(row, column);
}

void Grid::LayOutColumns()
{
    int wanted = 0;
    int stretching = 0;
    for (int i = 0; i < model_->columnCount(); ++i) {
        if (isColumnHidden(i))
            continue;
        wanted += Columns()[i].Width;
        stretching += Columns()[i].Stretch ? 1 : 0;
    }
    int spare = std::max(0, viewport()->width() - wanted);
    for (int i = 0; i < model_->columnCount(); ++i) {
        int share = 0;
        if (Columns()[i].Stretch && !isColumnHidden(i)) {
            share = spare / stretching--;
            spare -= share;
        }
        setColumnWidth(i, Columns()[i].Width + share);
    }
}

void Grid::PressMenuKey()
{
    const QRect row = visualRect(currentIndex());
    PressRight(viewport()->mapToGlobal(row.isValid() ? row.center() : QPoint()));
}

void Grid::PressRight(const QPoint& position)
{
    Fire(OnRightPress, position);
}

bool Grid::event(QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        QPainter painter(this);
        painter.fillRect(rect(), Look::FieldBackground());
        painter.setPen(Look::Border());
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
        if (hasFocus())
            Look::PaintFocusRing(painter, rect());
        return true;
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QTableView::event(event);
}

void Grid::keyPressEvent(QKeyEvent* event)
{
    const bool menuKey = event->key() == Qt::Key_Menu ||
                         (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (menuKey) {
        PressMenuKey();
        return;
    }
    const bool types = !event->text().isEmpty() && event->text().front().isPrint() &&
                       !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (types) {
        Fire(OnKeyPress, event->text());
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore(); // left to the form
        return;
    }
    QTableView::keyPressEvent(event);
}

void Grid::keyboardSearch(const QString&) {}

QModelIndex Grid::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    if (RowCount() == 0)
        return {};
    const int page = std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
    int row = std::max(0, Row());
    switch (action) {
    case MoveUp:
        --row;
        break;
    case MoveDown:
        ++row;
        break;
    case MovePageUp:
        row -= page;
        break;
    case MovePageDown:
        row += page;
        break;
    case MoveHome:
        row = 0;
        break;
    case MoveEnd:
        row = RowCount() - 1;
        break;
    default: // whole rows are current, so Left and Right do nothing
        break;
    }
    return RowIndex(std::clamp(row, 0, RowCount() - 1));
}

void Grid::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const int sideways = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(sideways);
}

void Grid::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        QTableView::mousePressEvent(event);
    if (event->button() != Qt::RightButton)
        return;
    const QModelIndex under = indexAt(event->position().toPoint());
    if (under.isValid())
        SetRow(under.row());
    PressRight(event->globalPosition().toPoint());
}

void Grid::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Fire(OnDoubleClick);
}

// OnRightPress has already been fired for mouse presses and the menu key. For Shift+F10, Windows
// sends only a context menu event and no key event.
void Grid::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard && event->modifiers() == Qt::ShiftModifier)
        PressMenuKey();
}

void Grid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    LayOutColumns();
}

void Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    // The current row is highlighted in all its columns.
    viewport()->update();
    if (!removing_ && current.isValid() && current.row() != previous.row())
        Fire(OnRowChange);
}

} // namespace TradeForms
