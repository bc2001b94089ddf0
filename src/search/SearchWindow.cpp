#include "search/SearchWindow.h"

#include "controls/Look.h"
#include "controls/MsgBox.h"
#include "controls/Utf8.h"
#include "data/Connection.h"
#include "data/Numbers.h"
#include "host/HostContext.h"

#include <QBoxLayout>
#include <QLocale>
#include <QScopedValueRollback>

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace TradeForms {

namespace {

/// A right-to-left list of these columns.
Grid* listOf(const char* name, const QList<SearchColumn>& columns)
{
    using Type = SearchColumn::Type;
    auto* grid = new Grid(utf8(name));
    grid->setLayoutDirection(Qt::RightToLeft);
    QList<GridColumn> gridColumns;
    for (const SearchColumn& column : columns) {
        gridColumns.append(GridColumn{
            .Name = utf8(column.Name),
            .Caption = column.Caption,
            .Style = column.Kind == Type::Urdu ? StyleSet::ColUrdu : StyleSet::ColEng,
            .Width = column.Width,
            .Stretch = column.Stretch,
            .Number = column.Kind == Type::Number,
        });
    }
    grid->SetColumns(gridColumns);
    return grid;
}

int widthOf(const QList<SearchColumn>& columns)
{
    return std::accumulate(
        columns.begin(), columns.end(), 0,
        [](int width, const SearchColumn& column) { return width + column.Width; });
}

/// Whether a character typed in the list goes to the jump field.
bool isJumpKey(const QString& text)
{
    if (text.size() != 1)
        return false;
    const char16_t c = text.front().unicode();
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

} // namespace

SearchWindow::SearchWindow(SearchDialog& dialog)
    : dialog_(dialog), declaration_(dialog.Declaration()), list_(declaration_.Columns),
      lines_(declaration_.GridDetail.Columns), reader_(*this),
      menu_(
          *this, [this] { return exportList(); }, [this] { return grid_->Row(); })
{
    setObjectName(utf8(declaration_.Name));
    SetWindowCaption(
        utf8(declaration_.WindowTitle ? declaration_.WindowTitle : declaration_.Title.English));
    compose();
    attach();
}

SearchWindow::~SearchWindow()
{
    // Close the rows before the base class deletes the grids that show them.
    grid_->SetSource(nullptr);
    if (gridDetail_)
        gridDetail_->SetSource(nullptr);
}

void SearchWindow::compose()
{
    title_ = new TitleStrip(declaration_.Title);
    btnSelect_ = &BarButton(nullptr, "BtnSelect", {"منتخب", "Select"}, "Enter",
                            JeweledButton::Kind::Primary);
    btnClose_ = &BarButton(nullptr, "BtnClose", {"بند", "Close"}, "Esc");

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(1, 1, 1, 1);
    all->setSpacing(0);
    all->addWidget(title_);
    all->addWidget(composeFields());
    all->addLayout(composeLists(), 1);
    all->addWidget(ButtonBar({btnSelect_}, {btnClose_}));

    QList<Control*> tabOrder;
    for (const Narrowing& narrowing : narrowings_)
        tabOrder << narrowing.Field;
    for (Control* control : std::initializer_list<Control*>{dtpFrom_, dtpTo_, btnFilter_, grid_,
                                                            gridDetail_, btnSelect_, btnClose_})
        if (control)
            tabOrder << control;
    SetTabOrderOf(tabOrder);
    resize(std::max(640, widthOf(declaration_.Columns) + 8 * Look::Space()),
           gridDetail_ ? 680 : 560);
}

QWidget* SearchWindow::composeFields()
{
    auto* strip = new Strip(Strip::Kind::Plain);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(2 * Look::Space(), Look::Space(), 2 * Look::Space(), Look::Space());
    row->setSpacing(Look::Space());

    for (const SearchField& field : declaration_.Fields) {
        const QString english = utf8(field.Caption.English);
        Txt* txt = field.TypesUrdu ? new UTxt(utf8(field.Name), english)
                                   : new Txt(utf8(field.Name), english);
        txt->setMinimumWidth(field.TypesUrdu ? 150 : 90);
        const QString way = field.Kind == SearchField::Type::Jump ? QStringLiteral("jumps")
                                                                  : QStringLiteral("filters");
        row->addWidget(
            Stacked(new CaptionLabel(utf8(field.Caption.Urdu), english + utf8(" · ") + way), txt),
            field.TypesUrdu ? 2 : 1);
        narrowings_.push_back({&field, txt});
    }
    if (declaration_.Dates.From) {
        dtpFrom_ = new DTPicker(QStringLiteral("DtpFrom"), QStringLiteral("From date"));
        dtpTo_ = new DTPicker(QStringLiteral("DtpTo"), QStringLiteral("To date"));
        for (DTPicker* picker : {dtpFrom_, dtpTo_})
            picker->SetCustomFormat(utf8(declaration_.Dates.Format));
        row->addWidget(Stacked({"تاریخ سے", "From"}, dtpFrom_));
        row->addWidget(Stacked({"تاریخ تک", "To"}, dtpTo_));
    }
    if (declaration_.BtnFilter) {
        btnFilter_ = &BarButton(nullptr, "BtnFilter", {"تلاش", "Search"},
                                declaration_.FilterOnF12 ? "F12" : "");
        btnFilter_->setToolTip(utf8(declaration_.FilterTip));
        row->addWidget(btnFilter_, 0, Qt::AlignBottom);
    }
    return strip;
}

QLayout* SearchWindow::composeLists()
{
    auto* lists = new QVBoxLayout;
    lists->setContentsMargins(2 * Look::Space(), 0, 2 * Look::Space(), 2 * Look::Space());
    lists->setSpacing(Look::Space());
    grid_ = listOf("Grid", declaration_.Columns);
    grid_->SetSource(&list_);
    lists->addWidget(grid_, 3);
    if (!declaration_.GridDetail.Statement.isEmpty()) {
        gridDetail_ = listOf("GridDetail", declaration_.GridDetail.Columns);
        gridDetail_->SetSource(&lines_);
        lists->addWidget(gridDetail_, 2);
    }
    if (!declaration_.LblBalance.isEmpty()) {
        lblBalance_ = new Label(QStringLiteral("LblBalance"));
        lists->addWidget(Labelled({"بقایا", "Balance"}, lblBalance_));
    }
    if (declaration_.LblTotalCards) {
        lblTotalCards_ = new Label(QStringLiteral("LblTotalCards"));
        lists->addWidget(Labelled({"کل کارڈ", "Total cards"}, lblTotalCards_));
    }
    for (Label* label : {lblBalance_, lblTotalCards_}) {
        if (label) {
            label->setFont(Look::UrduFont());
            label->SetForeColor(Look::Accent());
            label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
        }
    }
    return lists;
}

void SearchWindow::attach()
{
    for (const Narrowing& narrowing : narrowings_) {
        switch (narrowing.Declared->Kind) {
        case SearchField::Type::Jump:
            narrowing.Field->OnChange += [this, narrowing] { jump(narrowing); };
            break;
        case SearchField::Type::QueryAgain:
            narrowing.Field->OnChange += [this] { loadList(); };
            break;
        case SearchField::Type::OnFilter:
            break;
        }
    }
    if (btnFilter_)
        btnFilter_->OnClick += [this] { loadList(); };
    reader_.OnBegin = [this] {
        if (declaration_.Dates.From)
            showRange();
        return buildStatement();
    };
    reader_.OnRead = [this](Recordset rows, const QString& statement) {
        showList(std::move(rows), statement);
    };
    reader_.OnState = [this] { showCount(); };
    connect(this, &Form::Unloaded, &reader_, &ListReader::Abandon);
    grid_->OnRowChange += [this] {
        list_.Rows().MoveToPosition(grid_->Row());
        showRow();
    };
    grid_->OnDoubleClick += [this] {
        // The clicked row belongs to the list that is being replaced.
        if (reader_.IsReading()) {
            reader_.Finish();
        } else if (grid_->RowCount() >= 1) {
            select();
        }
    };
    grid_->OnKeyPress += [this](const QString& text) {
        if (isJumpKey(text)) {
            // Focus first, then the text, so that the caret stands behind the character.
            SetFocus(firstField());
            firstField().SetText(text);
        }
    };
    grid_->OnRightPress += [this](const QPoint& position) {
        reader_.Finish();
        jumpTo(grid_->Row()); // selects the clicked row alone
        menu_.Show(position);
    };
    btnSelect_->OnClick += [this] { select(); };
    btnClose_->OnClick += [this] { closeWithoutResult(); };
    title_->ImgExit().OnClick += [this] { Unload(); };
    if (declaration_.MinimizeWorks)
        title_->ImgMin().OnClick += [this] { Minimize(); };
}

Txt& SearchWindow::NarrowingField(const char* name)
{
    for (const Narrowing& narrowing : narrowings_)
        if (qstrcmp(narrowing.Declared->Name, name) == 0)
            return *narrowing.Field;
    throw std::out_of_range(name);
}

Txt& SearchWindow::firstField()
{
    return *narrowings_.front().Field;
}

void SearchWindow::Load()
{
    if (declaration_.Dates.From) {
        const QDate today = QDate::currentDate();
        dtpFrom_->SetValue(declaration_.Dates.From(today));
        dtpTo_->SetValue(declaration_.Dates.To(today));
    }
    if (declaration_.Dates.From && declaration_.Dates.QueryAgain) {
        // Connected after the defaults are set, so that these do not read the list.
        for (DTPicker* picker : {dtpFrom_, dtpTo_}) {
            picker->OnChange += [this] {
                if (!showingRange_)
                    loadList();
            };
            picker->OnLostFocus += [this] { showRange(); };
        }
    }
    dialog_.EmptyParaOut(declaration_.Results.front());
    ResetFocus(firstField());
    loading_ = true;
    reader_.Read();
}

SearchWindow::DateRange SearchWindow::range() const
{
    const QDate from = dtpFrom_->Value();
    const QDate to = dtpTo_->Value();
    if (!declaration_.Dates.WholeMonths)
        return {from, to};
    return {QDate(from.year(), from.month(), 1), QDate(to.year(), to.month(), to.daysInMonth())};
}

/// Sets the pickers to the range that is read.
void SearchWindow::showRange()
{
    const QScopedValueRollback<bool> quiet(showingRange_, true);
    const DateRange dates = range();
    const auto set = [](DTPicker& picker, const QDate& date) {
        if (!picker.IsBeingTyped() && picker.Value() != date)
            picker.SetValue(date);
    };
    set(*dtpFrom_, dates.From);
    set(*dtpTo_, dates.To);
}

Statement SearchWindow::buildStatement() const
{
    Statement statement(declaration_.Statement.constData());
    for (const SearchInput& input : declaration_.Inputs) {
        const QString given = dialog_.ParaIn(input.Name).toString();
        const QString value = given.trimmed().isEmpty() ? QString() : given;
        Statement clause;
        if (input.Kind == SearchInput::Type::ReadyClause)
            clause = Statement(given);
        else if (value != QLatin1String(input.NoClauseFor))
            clause = Statement(input.Clause).Bind(input.Name, value);
        statement.Splice(input.Place, clause);
    }
    for (const Narrowing& narrowing : narrowings_) {
        if (!narrowing.Declared->Place)
            continue;
        Statement clause;
        if (const QString typed = narrowing.Field->Text(); !typed.trimmed().isEmpty())
            clause = Statement(narrowing.Declared->Text.constData())
                         .Bind(narrowing.Declared->Name, typed);
        statement.Splice(narrowing.Declared->Place, clause);
    }
    if (declaration_.Dates.From) {
        const DateRange dates = range();
        statement.Bind("DtpFrom", dates.From)
            .Bind("DtpTo", dates.To)
            .Bind("MonthAfterDtpTo", dates.To.addMonths(1));
    }
    return statement;
}

void SearchWindow::loadList()
{
    loading_ = false;
    pendingJump_.reset();
    reader_.Read();
}

void SearchWindow::showList(Recordset rows, const QString& statement)
{
    listStatement_ = statement;
    list_.Take(std::move(rows));
    grid_->SourceChanged();
    jumpTo(0);
    if (list_.RowCount() == 0)
        showRow();
    showCount();
    if (lblTotalCards_)
        lblTotalCards_->SetText(QString::number(list_.RowCount()));
    if (loading_ && lblBalance_)
        lblBalance_->SetText(QString());
    if (const auto pending = std::exchange(pendingJump_, std::nullopt))
        jump(*pending);
}

void SearchWindow::showCount()
{
    const auto count = [](const char* what, int rows) {
        return utf8(what) + QLocale(QLocale::English).toString(rows);
    };
    if (reader_.IsReading())
        title_->SetState(utf8("پڑھا جا رہا ہے · ") + count("reading ", reader_.RowCount()));
    else if (list_.Rows().IsOpen())
        title_->SetState(count("rows ", list_.RowCount()));
    else
        title_->SetState(QString());
}

void SearchWindow::jump(const Narrowing& narrowing)
{
    if (reader_.IsReading()) {
        pendingJump_ = narrowing;
        return;
    }
    if (!list_.Rows().IsOpen())
        return;
    const QString typed = narrowing.Field->Text();
    if (typed.trimmed().isEmpty()) {
        jumpTo(0);
        return;
    }
    Recordset& rows = list_.Rows();
    rows.Find(
        Statement(narrowing.Declared->Text.constData()).Bind(narrowing.Declared->Name, typed));
    jumpTo(rows.Eof() ? rows.RecordCount() - 1 : rows.Position());
}

void SearchWindow::jumpTo(int row)
{
    grid_->ClearSelection();
    if (row < 0 || row >= grid_->RowCount())
        return;
    grid_->SetRow(row);
    list_.Rows().MoveToPosition(row);
    grid_->SelectRow(row);
}

/// Runs a statement whose placeholders are columns of the list or fields of its rows.
Recordset SearchWindow::readForRow(const QByteArray& statement) const
{
    Statement about(statement.constData());
    const Recordset& rows = list_.Rows();
    const int row = grid_->Row();
    // Last to first, so that the first of two fields of one name is bound.
    for (int field = rows.FieldCount() - 1; field >= 0; --field)
        about.Bind(rows.FieldName(field).toUtf8(), rows.ValueAt(row, field));
    for (int column = 0; column < declaration_.Columns.size(); ++column)
        about.Bind(declaration_.Columns[column].Name, list_.Text(row, column));
    return HostContext::Database()->Execute(about);
}

/// Shows the balance and the detail rows of the current row.
void SearchWindow::showRow()
{
    const bool none = list_.RowCount() == 0;
    if (lblBalance_) {
        QStringList texts;
        for (const QByteArray& statement : declaration_.LblBalance)
            if (!none)
                texts << TextOf(readForRow(statement).Fields(0).Value());
        lblBalance_->SetText(texts.join(u' '));
    }
    if (gridDetail_) {
        if (none)
            lines_.Drop();
        else
            lines_.Take(readForRow(declaration_.GridDetail.Statement));
        gridDetail_->SourceChanged();
    }
}

void SearchWindow::select()
{
    reader_.Finish();
    if (grid_->RowCount() == 0)
        return;
    for (const SearchResult& result : declaration_.Results) {
        const QVariant value = list_.Rows().Value(result.Field);
        switch (result.Kind) {
        case SearchResult::Type::Text:
            dialog_.paraOut_[result.Name] = TextOf(value);
            break;
        case SearchResult::Type::Int16:
            dialog_.paraOut_[result.Name] = int(ToInt16(value.toDouble()));
            break;
        case SearchResult::Type::Int32:
            dialog_.paraOut_[result.Name] = ToInt32(value.toDouble());
            break;
        }
    }
    Unload();
}

void SearchWindow::closeWithoutResult()
{
    for (const SearchResult& result : declaration_.Results)
        dialog_.EmptyParaOut(result);
    Unload();
}

ExportList SearchWindow::exportList() const
{
    ExportList list;
    list.Name = utf8(declaration_.Title.English);
    list.Rows = list_.RowCount();
    for (const SearchColumn& column : declaration_.Columns) {
        list.Columns.append(
            {utf8(column.Caption.Urdu) + utf8(" · ") + utf8(column.Caption.English), column.Width});
    }
    list.Value = [this](int row, int column) { return list_.Value(row, column); };
    list.Text = [this](int row, int column) { return list_.Text(row, column); };
    return list;
}

void SearchWindow::FormKeyDown(KeyPress& key)
{
    const bool goesIntoList = key.Code == Qt::Key_Down && IsActive(firstField());
    const bool actsOnList =
        goesIntoList || (IsActive(*grid_) && key.Code != Qt::Key_Escape && !isJumpKey(key.Text));
    if (actsOnList)
        reader_.Finish();
    switch (key.Code) {
    case Qt::Key_Escape:
        key.Swallow();
        closeWithoutResult();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        key.Swallow();
        select();
        return;
    case Qt::Key_F12:
        if (declaration_.FilterOnF12) {
            key.Swallow();
            FinishEdit();
            btnFilter_->Click();
        }
        return;
    case Qt::Key_Down:
        if (goesIntoList) {
            key.Swallow();
            SetFocus(*grid_);
        }
        return;
    default:
        if (key.IsCtrl(Qt::Key_C) && IsActive(*grid_)) {
            key.Swallow();
            menu_.CopyRow();
            return;
        }
        Form::FormKeyDown(key);
    }
}

void SearchWindow::HandlerFailed(const std::exception& failure)
{
    ShowError(this, failure);
}

} // namespace TradeForms
