#include "search/SearchWindow.h"

#include "controls/Look.h"
#include "controls/MsgBox.h"
#include "data/Connection.h"
#include "data/Numbers.h"
#include "host/HostContext.h"

#include <QBoxLayout>
#include <QLocale>

#include <algorithm>
#include <stdexcept>

namespace TradeForms {

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

DTPicker* datePicker(const char* name, const char* accessibleName)
{
    auto* picker = new DTPicker(utf8(name), utf8(accessibleName));
    picker->SetCustomFormat(QStringLiteral("dd/MM/yyyy"));
    return picker;
}

/// Whether a key typed in the list belongs into the jump field.
bool jumps(const QString& text)
{
    if (text.size() != 1) {
        return false;
    }
    const char16_t c = text.front().unicode();
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

} // namespace

SearchWindow::SearchWindow(SearchDialog& dialog) : dialog_(dialog), is_(dialog.Description())
{
    setObjectName(utf8(is_.Name));
    SetWindowCaption(utf8(is_.English));
    compose();
    attach();
}

SearchWindow::~SearchWindow()
{
    // The list goes before the base class takes the grid down.
    grid_->SetSource(nullptr);
}

void SearchWindow::compose()
{
    title_ = new TitleStrip(utf8(is_.Urdu), utf8(is_.English));

    grid_ = new Grid(QStringLiteral("Grid"));
    grid_->setLayoutDirection(Qt::RightToLeft);
    QList<GridColumn> columns;
    int width = 2 * Look::Space();
    for (const SearchColumn& column : is_.Columns) {
        columns.append(GridColumn{
            .Name = utf8(column.Name),
            .Urdu = utf8(column.Urdu),
            .English = utf8(column.English),
            .Style = column.Is == SearchColumn::Kind::Urdu ? StyleSet::ColUrdu : StyleSet::ColEng,
            .Width = column.Width,
            .Stretch = column.Stretch,
            .Number = column.Is == SearchColumn::Kind::Number,
        });
        width += column.Width;
    }
    grid_->SetColumns(columns);

    btnSelect_ = new JeweledButton(QStringLiteral("BtnSelect"), utf8("منتخب"),
                                   QStringLiteral("Select"), QStringLiteral("Enter"),
                                   JeweledButton::Kind::Primary);
    btnClose_ = new JeweledButton(QStringLiteral("BtnClose"), utf8("بند"),
                                  QStringLiteral("Close"), QStringLiteral("Esc"));

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(1, 1, 1, 1);
    all->setSpacing(0);
    all->addWidget(title_);
    all->addWidget(composeFields());
    auto* listFrame = new QHBoxLayout;
    listFrame->setContentsMargins(2 * Look::Space(), 0, 2 * Look::Space(), 2 * Look::Space());
    listFrame->addWidget(grid_);
    all->addLayout(listFrame, 1);
    all->addWidget(ButtonBar({btnSelect_}, {btnClose_}));
    resize(std::max(640, width + 6 * Look::Space()), 560);
}

QWidget* SearchWindow::composeFields()
{
    auto* strip = new Strip(Strip::Kind::Plain);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(2 * Look::Space(), Look::Space(), 2 * Look::Space(), Look::Space());
    row->setSpacing(Look::Space());

    QList<Control*> tabOrder;
    for (const SearchField& field : is_.Fields) {
        const QString english = utf8(field.English);
        Txt* txt = field.TypesUrdu ? new UTxt(utf8(field.Name), english)
                                   : new Txt(utf8(field.Name), english);
        const QString way = field.Is == SearchField::Kind::Jump ? QStringLiteral("jumps")
                                                                : QStringLiteral("filters");
        row->addWidget(Stacked(new Caption(utf8(field.Urdu), english + utf8(" · ") + way), txt),
                       field.TypesUrdu ? 2 : 1);
        narrowings_.push_back({&field, txt});
        tabOrder.append(txt);
    }
    if (is_.DefaultFrom) {
        dtpFrom_ = datePicker("DtpFrom", "From date");
        dtpTo_ = datePicker("DtpTo", "To date");
        row->addWidget(
            Stacked(new Caption(utf8("تاریخ سے"), QStringLiteral("From")), dtpFrom_));
        row->addWidget(Stacked(new Caption(utf8("تاریخ تک"), QStringLiteral("To")), dtpTo_));
        tabOrder << dtpFrom_ << dtpTo_;
    }
    if (is_.HasFilterButton) {
        btnFilter_ = new JeweledButton(QStringLiteral("BtnFilter"), utf8("تلاش"),
                                       QStringLiteral("Search"), QStringLiteral("F12"));
        row->addWidget(btnFilter_, 0, Qt::AlignBottom);
        tabOrder << btnFilter_;
    }
    tabOrder << grid_ << btnSelect_ << btnClose_;
    SetTabOrderOf(tabOrder);
    return strip;
}

void SearchWindow::attach()
{
    for (const Narrowing& narrowing : narrowings_) {
        switch (narrowing.Is->Is) {
        case SearchField::Kind::Jump:
            narrowing.Field->OnChange = [this, narrowing] { jump(narrowing); };
            break;
        case SearchField::Kind::QueryAgain:
            narrowing.Field->OnChange = [this] { loadList(); };
            break;
        case SearchField::Kind::OnFilter:
            break;
        }
    }
    if (btnFilter_) {
        btnFilter_->OnClick = [this] { loadList(); };
    }
    grid_->OnRowChange = [this] {
        if (grid_->Row() >= 0) {
            list_.MoveToPosition(grid_->Row());
        }
    };
    grid_->OnDoubleClick = [this] {
        if (grid_->RowCount() >= 1) {
            select();
        }
    };
    grid_->OnKeyPress = [this](const QString& text) {
        if (jumps(text)) {
            // The field first, so that typing goes on there with the caret behind the character.
            SetFocus(jumpField());
            jumpField().SetText(text);
        }
    };
    btnSelect_->OnClick = [this] { select(); };
    btnClose_->OnClick = [this] { leaveEmpty(); };
    title_->ImgExit().OnClick = [this] { Unload(); };
    if (is_.MinimizeWorks) {
        title_->ImgMin().OnClick = [this] { Minimize(); };
    }
}

Txt& SearchWindow::NarrowingField(const char* name)
{
    for (const Narrowing& narrowing : narrowings_) {
        if (qstrcmp(narrowing.Is->Name, name) == 0) {
            return *narrowing.Field;
        }
    }
    throw std::out_of_range(name);
}

Txt& SearchWindow::jumpField()
{
    return NarrowingField(is_.JumpField);
}

void SearchWindow::Load()
{
    if (is_.DefaultFrom) {
        const QDate today = QDate::currentDate();
        dtpFrom_->SetValue(is_.DefaultFrom(today));
        dtpTo_->SetValue(today);
        // From here on, so that the defaults do not read the list.
        dtpFrom_->OnChange = [this] { loadList(); };
        dtpTo_->OnChange = [this] { loadList(); };
    }
    dialog_.EmptyParaOut(is_.Results.front());
    ResetFocus(jumpField());
    loadList();
}

Statement SearchWindow::buildStatement() const
{
    Statement statement(is_.Statement);
    for (const SearchInput& input : is_.Inputs) {
        const QString value = dialog_.ParaIn(input.Name).toString();
        Statement clause;
        if (input.Is == SearchInput::Kind::ReadyClause) {
            clause = Statement(value);
        } else if (!value.isEmpty() && value != QLatin1String(input.NoClauseFor)) {
            clause = Statement(input.Clause).Bind(input.Name, value);
        }
        statement.Splice(input.Place, clause);
    }
    for (const Narrowing& narrowing : narrowings_) {
        if (!narrowing.Is->Place) {
            continue;
        }
        const QString typed = narrowing.Field->Text();
        statement.Splice(narrowing.Is->Place,
                         typed.trimmed().isEmpty()
                             ? Statement()
                             : Statement(narrowing.Is->Text).Bind("Text", typed));
    }
    if (is_.DefaultFrom) {
        statement.Bind("DtpFrom", dtpFrom_->Value()).Bind("DtpTo", dtpTo_->Value());
    }
    return statement;
}

void SearchWindow::loadList()
{
    const std::shared_ptr<Connection>& connection = HostContext::Database();
    const Statement statement = buildStatement();
    // A new list each time: where it cannot be read, the one on the screen stays.
    Recordset list;
    list.Open(statement, connection, CursorType::Static, LockType::ReadOnly);
    listStatement_ = statement.Text(connection->Dialect());

    list_ = std::move(list);
    fieldOfColumn_.clear();
    for (const SearchColumn& column : is_.Columns) {
        fieldOfColumn_.push_back(list_.FieldIndex(utf8(column.Field)));
    }
    grid_->SetSource(this);
    grid_->SourceChanged();
    jumpTo(0);
    title_->SetState(QString(), QStringLiteral("rows ")
                                    + QLocale(QLocale::English).toString(list_.RecordCount()));
}

void SearchWindow::jump(const Narrowing& narrowing)
{
    if (!list_.IsOpen()) {
        return;
    }
    const QString typed = narrowing.Field->Text();
    if (typed.trimmed().isEmpty()) {
        jumpTo(0);
        return;
    }
    list_.Find(Statement(narrowing.Is->Text).Bind("Text", typed));
    jumpTo(list_.Eof() ? list_.RecordCount() - 1 : list_.Position());
}

void SearchWindow::jumpTo(int row)
{
    grid_->ClearSelection();
    if (row < 0 || row >= grid_->RowCount()) {
        return;
    }
    grid_->SetRow(row);
    list_.MoveToPosition(row);
    grid_->SelectRow(row);
}

void SearchWindow::select()
{
    if (grid_->RowCount() == 0) {
        return;
    }
    for (const SearchResult& result : is_.Results) {
        const QVariant value = list_.Value(result.Field);
        switch (result.Is) {
        case SearchResult::Kind::Text:
            dialog_.paraOut_[result.Name] = TextOf(value);
            break;
        case SearchResult::Kind::Int16:
            dialog_.paraOut_[result.Name] = int(ToInt16(value.toDouble()));
            break;
        case SearchResult::Kind::Int32:
            dialog_.paraOut_[result.Name] = ToInt32(value.toDouble());
            break;
        }
    }
    Unload();
}

void SearchWindow::leaveEmpty()
{
    for (const SearchResult& result : is_.Results) {
        dialog_.EmptyParaOut(result);
    }
    Unload();
}

void SearchWindow::FormKeyDown(KeyPress& key)
{
    switch (key.Code) {
    case Qt::Key_Escape:
        key.Swallow();
        leaveEmpty();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        key.Swallow();
        select();
        return;
    case Qt::Key_F12:
        if (btnFilter_) {
            key.Swallow();
            btnFilter_->Click();
        }
        return;
    case Qt::Key_Down:
        if (IsActive(*narrowings_.front().Field)) {
            key.Swallow();
            SetFocus(*grid_);
        }
        return;
    default:
        Form::FormKeyDown(key);
    }
}

void SearchWindow::HandlerFailed(const std::exception& failure)
{
    ShowError(this, failure);
}

int SearchWindow::RowCount() const
{
    return list_.IsOpen() ? list_.RecordCount() : 0;
}

QString SearchWindow::Text(int row, int column) const
{
    const int field = fieldOfColumn_[std::size_t(column)];
    return field < 0 ? QString() : TextOf(list_.ValueAt(row, field));
}

} // namespace TradeForms
