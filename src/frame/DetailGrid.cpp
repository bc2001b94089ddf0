#include "frame/DetailGrid.h"

#include "controls/Pieces.h"
#include "controls/Txt.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Numbers.h"
#include "frame/VoucherForm.h"
#include "host/HostContext.h"

#include <QMenu>

#include <algorithm>

namespace TradeForms {

namespace {

constexpr QStringView kCodeColumn = u"ID";
constexpr QStringView kAmountColumn = u"Amount";

using Storage = DetailColumn::Storage;

QVariant storedValue(Storage kind, const QString& text)
{
    switch (kind) {
    case Storage::NumberOrNull:
        return text.isEmpty() ? QVariant() : QVariant(Val(text));
    case Storage::Number:
        return Val(text);
    case Storage::TextOrNull:
        return text.isEmpty() ? QVariant() : QVariant(text);
    case Storage::TrimmedOrNull:
        return text.trimmed().isEmpty() ? QVariant() : QVariant(text.trimmed());
    case Storage::TrimmedKey:
        return text.trimmed();
    case Storage::Text:
    case Storage::Key:
    case Storage::Display:
        break;
    }
    return text;
}

QString entered(const DetailColumn& column)
{
    return column.Control->Text();
}

} // namespace

DetailGrid::DetailGrid(VoucherForm& form, Grid& grid, DetailDeclaration declaration)
    : form_(form), grid_(grid), declaration_(std::move(declaration))
{
    QList<GridColumn> columns;
    for (const DetailColumn& column : std::as_const(declaration_.Columns)) {
        columns.append(column.Column);
        fromCode_.prepend(&column);
        if (column.Column.Name == kCodeColumn)
            code_ = &column;
        if (column.Column.Name == kAmountColumn)
            amount_ = &column;
    }
    Q_ASSERT(code_ && (amount_ || !declaration_.Total));
    grid_.SetColumns(columns);
    attach();
}

void DetailGrid::attach()
{
    for (const RowEnd& end : std::as_const(declaration_.Ends))
        end.Field->OnLostFocus += [this, &end] { rowEndLeft(end); };
    grid_.OnGotFocus += [this] {
        IsGridActive = true;
        openCode(false);
    };
    grid_.OnLostFocus += [this] {
        // Enter, a double-click or starting a new voucher may have handled it already.
        if (IsGridActive)
            GridChosen();
    };
    grid_.OnRowChange += [this] {
        if (IsGridActive)
            form_.ShowGridRow();
    };
    grid_.OnDoubleClick += [this] { GridChosen(); };
    grid_.OnRightPress += [this](const QPoint& position) { ShowRowMenu(position); };
    grid_.OnBeforeDelete += [this] {
        showTotal(totalWith(-amountOf(grid_.Row())));
        form_.SetFormState(VoucherForm::State::Edited);
    };
}

QString DetailGrid::code(int row) const
{
    return row < 0 ? QString() : grid_.Cell(row, kCodeColumn);
}

bool DetailGrid::isBlank(int row) const
{
    return code(row).trimmed().isEmpty();
}

void DetailGrid::appendBlankRow()
{
    grid_.SetCell(grid_.AddRow(), kCodeColumn, QStringLiteral(" "));
    grid_.MoveLast();
}

void DetailGrid::EmptyGrid()
{
    grid_.RemoveAllRows();
    appendBlankRow();
}

void DetailGrid::openCode(bool open)
{
    Txt& code = CodeControl();
    code.SetEnabled(open);
    code.SetClosedLook(!open);
    code.SetTabStop(open);
    for (Control* control : std::as_const(declaration_.Closes))
        control->SetEnabled(open);
}

void DetailGrid::StartAdding()
{
    IsRowAdd = true;
    IsGridActive = false;
    openCode(true);
}

void DetailGrid::LoadDetail()
{
    const std::shared_ptr<Connection>& connection = HostContext::Database();
    rowsId_ = form_.VoucherId();
    if (BodyRecordset.IsOpen())
        BodyRecordset.Close();
    BodyRecordset.Open(form_.WithKey(declaration_.Body), connection, CursorType::Static,
                       LockType::BatchOptimistic);
    if (BodyRecordset.RecordCount() == 0)
        return;
    Statement display = form_.WithKey(declaration_.Display);
    if (declaration_.Narrow)
        display.Splice("narrow", declaration_.Narrow());
    Recordset shown = connection->Execute(display);
    grid_.SetRedraw(false);
    grid_.RemoveAllRows();
    if (declaration_.Total)
        declaration_.Total->SetText(QStringLiteral("0"));
    for (; !shown.Eof(); shown.MoveNext()) {
        const int row = grid_.AddRow();
        for (const DetailColumn& column : std::as_const(declaration_.Columns))
            grid_.SetCell(row, column.Column.Name, TextOf(shown.Value(column.Field)));
        showTotal(totalWith(amountOf(row)));
    }
    appendBlankRow();
    grid_.SetRedraw(true);
}

// ---- The sum of the amounts

double DetailGrid::amountOf(int row) const
{
    return declaration_.Total ? Val(grid_.Cell(row, kAmountColumn)) : 0;
}

QString DetailGrid::totalWith(double amount) const
{
    const Txt* total = declaration_.Total;
    return total ? GeneralFormat(InRange(Val(total->Text()) + amount)) : QString();
}

void DetailGrid::showTotal(const QString& total) const
{
    if (declaration_.Total)
        declaration_.Total->SetText(total);
}

// ---- Which row is which

Statement DetailGrid::filterOf(const char* filter, const Texts& texts) const
{
    Statement row(filter);
    row.Bind("id", rowsId_).Bind("code", texts(*code_));
    for (const DetailColumn* column : fromCode_)
        if (column->IsKey() || column->TellsRows)
            row.Bind(column->Field, storedValue(column->Kind, texts(*column)));
    return row;
}

bool DetailGrid::isEntryOf(int row) const
{
    return std::all_of(
        fromCode_.begin(), fromCode_.end(),
        [&](const DetailColumn* column) {
            return !(column->IsKey() || column->TellsRows) ||
                   entered(*column).compare(grid_.Cell(row, column->Column.Name),
                                            Qt::CaseInsensitive) == 0;
        });
}

// ---- Adding and correcting

bool DetailGrid::isFilled() const
{
    for (const RequiredField& required : std::as_const(declaration_.Required)) {
        if (!required.Field->Text().trimmed().isEmpty())
            continue;
        if (!required.Empty.Text.isEmpty())
            MsgBox(&form_, required.Empty);
        if (required.TakesFocus)
            form_.SetFocus(*required.Field);
        return false;
    }
    return true;
}

bool DetailGrid::refuseDuplicate()
{
    if (declaration_.AddedTwice == Twice::Overwrites)
        return false;
    MsgBox(&form_, declaration_.Duplicate);
    if (declaration_.AddedTwice == Twice::RefusedAndCleared)
        form_.ClearEntryRow();
    form_.SetFocus(CodeControl());
    return true;
}

bool DetailGrid::AddDetailRow()
{
    if (!isFilled())
        return false;
    if (IsRowAdd && declaration_.MayAdd && !declaration_.MayAdd())
        return false;
    // Convert all values before changing anything: a number that cannot be converted must not leave
    // half a row.
    QList<QVariant> values;
    for (const DetailColumn* column : std::as_const(fromCode_))
        values.append(storedValue(column->Kind, entered(*column)));
    const double amount = declaration_.Total ? Val(entered(*amount_)) : 0;
    const char* filter =
        declaration_.EntryFilter ? declaration_.EntryFilter : declaration_.RowFilter;
    BodyRecordset.SetFilter(filterOf(filter, entered));
    const bool found = BodyRecordset.RecordCount() > 0;
    if (IsRowAdd && found && refuseDuplicate())
        return false;
    if (!IsRowAdd && (!found || !isEntryOf(grid_.Row()))) {
        throw Failure(QStringLiteral("%1 is not the row that is being corrected. Choose the row "
                                     "that you want to correct, or the blank row to add one.")
                          .arg(CodeControl().Text()));
    }
    if (declaration_.OnAccepted)
        declaration_.OnAccepted();
    const bool isNew = IsRowAdd && !found;
    const QString total = totalWith(IsRowAdd ? amount : amount - amountOf(grid_.Row()));
    // Return to the blank row: a click may have made another row current.
    if (IsRowAdd)
        grid_.MoveLast();
    if (isNew) {
        BodyRecordset.AddNew();
        BodyRecordset.Fields(declaration_.IdColumn).SetValue(rowsId_);
    }
    grid_.SetRedraw(false);
    showTotal(total);
    for (qsizetype at = 0; at < fromCode_.size(); ++at) {
        const DetailColumn& column = *fromCode_[at];
        if (column.IsKey() && !isNew)
            continue;
        grid_.SetCell(grid_.Row(), column.Column.Name, entered(column));
        if (column.Kind != Storage::Display)
            BodyRecordset.Fields(column.Field).SetValue(values[at]);
    }
    BodyRecordset.Update();
    grid_.MoveLast();
    if (!isBlank(grid_.Row()))
        appendBlankRow();
    form_.ClearEntryRow();
    form_.SetFocus(CodeControl());
    IsRowAdd = true;
    BodyRecordset.ClearFilter();
    if (declaration_.AddMarksEdited)
        form_.SetFormState(VoucherForm::State::Edited);
    grid_.SetRedraw(true);
    return true;
}

void DetailGrid::ClearEntryRow()
{
    openCode(true);
    for (const DetailColumn* column : std::as_const(fromCode_))
        column->Control->SetText(QString());
}

void DetailGrid::ShowGridRow()
{
    const int row = grid_.Row();
    if (row < 0)
        return;
    for (const DetailColumn* column : std::as_const(fromCode_)) {
        const QString text = grid_.Cell(row, column->Column.Name);
        column->Control->SetText(column == code_ ? text.trimmed() : text);
    }
}

void DetailGrid::GridChosen()
{
    IsGridActive = false;
    if (isBlank(grid_.Row())) {
        CodeControl().SetText(QString());
        openCode(true);
        if (CodeControl().IsVisible())
            form_.SetFocus(CodeControl());
        IsRowAdd = true;
        return;
    }
    openCode(false);
    // Set before the focus moves, because handlers of the fields left on the way read it.
    IsRowAdd = false;
    Control& first = *declaration_.EditFirst;
    if (first.IsEnabled() && first.IsVisible()) {
        form_.SetFocus(first);
        // Select the text, so that typing replaces it.
        if (auto* text = dynamic_cast<Txt*>(&first))
            text->selectAll();
    }
}

// ---- Removing

void DetailGrid::ShowRowMenu(const QPoint& position)
{
    if (isBlank(grid_.Row()))
        return;
    auto* menu = new QMenu(QStringLiteral("Delete"), &form_);
    menu->setObjectName(QStringLiteral("MnuDelete"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* remove = menu->addAction(QStringLiteral("Remove This Row"));
    remove->setObjectName(QStringLiteral("mniRemoveRow"));
    // Queued, so that it runs after the menu has closed: the menu must not be open below a message
    // box.
    QObject::connect(
        remove, &QAction::triggered, &form_, [this] { form_.Guard([this] { form_.RemoveRow(); }); },
        Qt::QueuedConnection);
    menu->popup(position);
    menu->setActiveAction(remove);
}

void DetailGrid::RemoveRow()
{
    const int row = grid_.Row();
    if (isBlank(row))
        return;
    // Filter by the row in the grid, because the entry controls may hold another one.
    BodyRecordset.SetFilter(
        filterOf(declaration_.RowFilter, [this, row](const DetailColumn& column) {
            return grid_.Cell(row, column.Column.Name);
        }));
    if (BodyRecordset.RecordCount() > 0)
        BodyRecordset.Delete();
    grid_.ClearSelection();
    grid_.SelectRow(row);
    grid_.DeleteSelected();
    BodyRecordset.ClearFilter();
    form_.ShowGridRow();
}

bool DetailGrid::AddsWhenLeft(const Control* from, const Control& to) const
{
    return std::any_of(
        declaration_.Ends.begin(), declaration_.Ends.end(),
        [&](const RowEnd& end) { return end.Field == from && !end.Unless.contains(&to); });
}

void DetailGrid::rowEndLeft(const RowEnd& end)
{
    if (end.Unless.contains(form_.ActiveControl()))
        return;
    try {
        form_.AddDetailRow();
    } catch (...) {
        // Return the focus to the row that could not be added: the control that the focus was
        // moving to might clear it.
        form_.ResetFocus(*end.Field);
        throw;
    }
}

// ---- Saving

int DetailGrid::CountRows()
{
    BodyRecordset.ClearFilter();
    return BodyRecordset.RecordCount();
}

void DetailGrid::stampId()
{
    rowsId_ = form_.VoucherId();
    BodyRecordset.ClearFilter();
    if (BodyRecordset.RecordCount() == 0)
        return;
    for (BodyRecordset.MoveFirst(); !BodyRecordset.Eof(); BodyRecordset.MoveNext()) {
        BodyRecordset.Fields(declaration_.IdColumn).SetValue(rowsId_);
        if (declaration_.OnStamp)
            declaration_.OnStamp(BodyRecordset);
        BodyRecordset.Update();
    }
}

void DetailGrid::SaveBody()
{
    // Vouchers count their rows in 16 bits; saving one with more rows fails.
    static_cast<void>(ToInt16(CountRows()));
    stampId();
    BodyRecordset.UpdateBatch(3);
}

// ---- Layout

QWidget* DetailGrid::EntryRow(QWidget* code) const
{
    QList<QWidget*> fields;
    for (const DetailColumn* column : fromCode_) {
        if (column == code_ || column->Kind == Storage::Display)
            continue;
        column->Control->setFixedWidth(column->Column.Width);
        CaptionLabel* caption =
            column->Caption ? column->Caption : new CaptionLabel(column->Column.Caption);
        fields.append(Stacked(caption, column->Control));
    }
    return EntryStrip(code, fields);
}

} // namespace TradeForms
