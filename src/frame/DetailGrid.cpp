#include "frame/DetailGrid.h"

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

QVariant storedValue(DetailColumn::Stored as, const QString& text)
{
    switch (as) {
    case DetailColumn::Stored::NumberOrNull:
        return text.isEmpty() ? QVariant() : QVariant(Val(text));
    case DetailColumn::Stored::Number:
        return Val(text);
    case DetailColumn::Stored::TextOrNull:
        return text.isEmpty() ? QVariant() : QVariant(text);
    case DetailColumn::Stored::Text:
    case DetailColumn::Stored::Key:
    case DetailColumn::Stored::Display:
        break;
    }
    return text;
}

} // namespace

DetailGrid::DetailGrid(VoucherForm& form, Grid& grid, DetailDeclaration declaration)
    : form_(form), grid_(grid), declaration_(std::move(declaration))
{
    QList<GridColumn> columns;
    for (const DetailColumn& column : declaration_.Columns) {
        columns.append(column.Column);
        if (column.Is == DetailColumn::Stored::Key) {
            code_ = column.Control;
            codeColumn_ = column.Column.Name;
            codeBodyColumn_ = column.BodyColumn;
        }
    }
    grid_.SetColumns(columns);
    attach();
}

void DetailGrid::attach()
{
    for (const RowEnd& end : declaration_.Ends)
        end.Field->OnLostFocus += [this, &end] { ended(end); };
    grid_.OnGotFocus += [this] {
        IsGridActive = true;
        openCode(false);
    };
    grid_.OnLostFocus += [this] {
        // Enter, a double-click or a new voucher may have dealt with it already.
        if (IsGridActive) {
            GridChosen();
        }
    };
    grid_.OnRowChange += [this] {
        if (IsGridActive) {
            ShowGridRow();
        }
    };
    grid_.OnDoubleClick += [this] { GridChosen(); };
    grid_.OnRightPress += [this](const QPoint& position) { ShowRowMenu(position); };
    grid_.OnBeforeDelete += [this] { form_.SetFormState(VoucherForm::State::Edited); };
}

QString DetailGrid::currentId() const
{
    return grid_.Row() < 0 ? QString() : grid_.Cell(grid_.Row(), codeColumn_);
}

bool DetailGrid::isBlank(int row) const
{
    return row < 0 || grid_.Cell(row, codeColumn_).trimmed().isEmpty();
}

void DetailGrid::appendBlankRow()
{
    grid_.SetCell(grid_.AddRow(), codeColumn_, QStringLiteral(" "));
    grid_.MoveLast();
}

void DetailGrid::EmptyGrid()
{
    grid_.RemoveAllRows();
    appendBlankRow();
}

void DetailGrid::openCode(bool open)
{
    code_->SetEnabled(open);
    code_->SetClosedLook(!open);
    code_->SetTabStop(open);
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
    const double id = form_.VoucherId();
    rowsId_ = id;
    if (BodyRecordset.IsOpen())
        BodyRecordset.Close();
    BodyRecordset.Open(Statement(declaration_.Body).Bind("id", id), connection, CursorType::Static,
                       LockType::BatchOptimistic);
    if (BodyRecordset.RecordCount() == 0)
        return;
    Recordset shown = connection->Execute(Statement(declaration_.Display).Bind("id", id));
    grid_.SetRedraw(false);
    grid_.RemoveAllRows();
    for (; !shown.Eof(); shown.MoveNext()) {
        const int row = grid_.AddRow();
        for (const DetailColumn& column : declaration_.Columns)
            grid_.SetCell(row, column.Column.Name, TextOf(shown.Value(column.Field)));
    }
    appendBlankRow();
    grid_.SetRedraw(true);
}

Statement DetailGrid::filterOf(const char* filter, const QString& code) const
{
    Statement row(filter);
    row.Bind("id", rowsId_).Bind("code", code);
    for (const DetailColumn& column : declaration_.Columns)
        if (column.TellsRows)
            row.Bind(column.BodyColumn, column.Control->Text());
    return row;
}

bool DetailGrid::isEntryOf(int row) const
{
    return std::all_of(
        declaration_.Columns.begin(), declaration_.Columns.end(),
        [&](const DetailColumn& column) {
            const bool tells = column.TellsRows || column.Is == DetailColumn::Stored::Key;
            return !tells || column.Control->Text().compare(grid_.Cell(row, column.Column.Name),
                                                            Qt::CaseInsensitive) == 0;
        });
}

bool DetailGrid::AddDetailRow()
{
    const QString code = code_->Text();
    if (code.trimmed().isEmpty()) {
        if (!declaration_.NoCode.Text.isEmpty()) {
            MsgBox(&form_, declaration_.NoCode);
            form_.SetFocus(*code_);
        }
        return false;
    }
    if (IsRowAdd && declaration_.MayAdd && !declaration_.MayAdd())
        return false;
    // Read before anything is changed: a number that cannot be read must not leave half a row.
    QList<QVariant> values;
    for (const DetailColumn& column : declaration_.Columns)
        values.append(storedValue(column.Is, column.Control->Text()));
    BodyRecordset.SetFilter(filterOf(
        declaration_.EntryFilter ? declaration_.EntryFilter : declaration_.RowFilter, code));
    if (IsRowAdd) {
        if (BodyRecordset.RecordCount() > 0) {
            MsgBox(&form_, declaration_.Duplicate);
            ClearEntryRow();
            form_.SetFocus(*code_);
            return false;
        }
        // The blank row, wherever a click has put the current one meanwhile.
        grid_.MoveLast();
        BodyRecordset.AddNew();
        BodyRecordset.Fields(declaration_.IdColumn).SetValue(rowsId_);
        grid_.SetCell(grid_.Row(), codeColumn_, code);
        BodyRecordset.Fields(codeBodyColumn_).SetValue(code);
    } else if (BodyRecordset.RecordCount() == 0 || !isEntryOf(grid_.Row())) {
        throw Failure(QStringLiteral("%1 is not the row that is being corrected. Choose the row "
                                     "that you want to correct, or the blank row to add one.")
                          .arg(code));
    }
    grid_.SetRedraw(false);
    for (qsizetype i = 0; i < declaration_.Columns.size(); ++i) {
        const DetailColumn& column = declaration_.Columns[i];
        if (column.Is == DetailColumn::Stored::Key)
            continue;
        grid_.SetCell(grid_.Row(), column.Column.Name, column.Control->Text());
        if (column.BodyColumn)
            BodyRecordset.Fields(column.BodyColumn).SetValue(values[i]);
    }
    BodyRecordset.Update();
    grid_.MoveLast();
    if (!isBlank(grid_.Row()))
        appendBlankRow();
    ClearEntryRow();
    form_.SetFocus(*code_);
    IsRowAdd = true;
    BodyRecordset.ClearFilter();
    form_.SetFormState(VoucherForm::State::Edited);
    grid_.SetRedraw(true);
    return true;
}

void DetailGrid::ClearEntryRow()
{
    openCode(true);
    for (const DetailColumn& column : declaration_.Columns)
        column.Control->SetText(QString());
    if (declaration_.OnClearEntryRow)
        declaration_.OnClearEntryRow();
}

void DetailGrid::ShowGridRow()
{
    const int row = grid_.Row();
    if (row < 0)
        return;
    for (const DetailColumn& column : declaration_.Columns) {
        const QString text = grid_.Cell(row, column.Column.Name);
        column.Control->SetText(column.Is == DetailColumn::Stored::Key ? text.trimmed() : text);
    }
}

void DetailGrid::GridChosen()
{
    IsGridActive = false;
    if (isBlank(grid_.Row())) {
        code_->SetText(QString());
        openCode(true);
        if (code_->IsVisible())
            form_.SetFocus(*code_);
        IsRowAdd = true;
    } else {
        openCode(false);
        // Before the focus moves: a field that is left on the way must know what it serves.
        IsRowAdd = false;
        if (declaration_.EditFirst->IsEnabled() && declaration_.EditFirst->IsVisible()) {
            form_.SetFocus(*declaration_.EditFirst);
            // Ready to be typed over.
            declaration_.EditFirst->selectAll();
        }
    }
}

void DetailGrid::ShowRowMenu(const QPoint& position)
{
    if (isBlank(grid_.Row()))
        return;
    auto* menu = new QMenu(QStringLiteral("Delete"), &form_);
    menu->setObjectName(QStringLiteral("MnuDelete"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* remove = menu->addAction(QStringLiteral("Remove This Row"));
    remove->setObjectName(QStringLiteral("mniRemoveRow"));
    // When the menu has gone: a message box that came up within it would outlive it.
    QObject::connect(
        remove, &QAction::triggered, &form_, [this] { form_.Guard([this] { RemoveRow(); }); },
        Qt::QueuedConnection);
    menu->popup(position);
    menu->setActiveAction(remove);
}

void DetailGrid::RemoveRow()
{
    if (isBlank(grid_.Row()))
        return;
    BodyRecordset.SetFilter(filterOf(declaration_.RowFilter, currentId()));
    if (BodyRecordset.RecordCount() > 0)
        BodyRecordset.Delete();
    grid_.ClearSelection();
    grid_.SelectRow(grid_.Row());
    grid_.DeleteSelected();
    BodyRecordset.ClearFilter();
    ShowGridRow();
}

bool DetailGrid::AddsWhenLeft(const Control* from, const Control& to) const
{
    return std::any_of(
        declaration_.Ends.begin(), declaration_.Ends.end(),
        [&](const RowEnd& end) {
            return end.Field == from &&
                   std::find(end.Unless.begin(), end.Unless.end(), &to) == end.Unless.end();
        });
}

void DetailGrid::ended(const RowEnd& end)
{
    if (end.Unless.contains(form_.ActiveControl()))
        return;
    try {
        AddDetailRow();
    } catch (...) {
        // Back to the row that could not be added: where the focus was going may empty it.
        form_.ResetFocus(*end.Field);
        throw;
    }
}

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
    // Vouchers count their rows in 16 bits: one with more fails to be saved.
    static_cast<void>(ToInt16(CountRows()));
    stampId();
    BodyRecordset.UpdateBatch(3);
}

} // namespace TradeForms
