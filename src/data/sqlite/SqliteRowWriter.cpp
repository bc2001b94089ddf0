#include "data/sqlite/SqliteRowWriter.h"

#include "data/Utf8.h"

namespace TradeForms {

namespace {

QByteArray parameter(int number)
{
    return '?' + QByteArray::number(number);
}

/// The condition that a column still has its original value. Texts are compared without regard to
/// case, for which an index can be used, and byte by byte, so that a change of case is noticed.
QByteArray unchanged(const Column& column, int number, bool isKey)
{
    const QByteArray name = QuotedIdentifier(column.Field);
    QByteArray condition = name + " IS " + parameter(number);
    if (column.Kind == ColumnKind::Text && !isKey)
        condition += " AND " + name + " COLLATE BINARY IS " + parameter(number);
    return condition;
}

} // namespace

SqliteRowWriter::SqliteRowWriter(SqliteEngine& engine,
                                 std::shared_ptr<const ResultMetadata> metadata)
    : engine_(engine), metadata_(std::move(metadata)),
      table_(QuotedIdentifier(metadata_->BaseTable()))
{
}

const QByteArray& SqliteRowWriter::where()
{
    if (!where_.isEmpty())
        return where_;
    const TableInfo table = readTable();
    for (int index = 0; index < metadata_->Count(); ++index) {
        const Column& column = metadata_->At(index);
        where_ += (index == 0 ? "" : " AND ") +
                  unchanged(column, index + 1, table.Keys.contains(column.Field));
    }
    // Without a key, rows that are equal in all columns cannot be distinguished, and any one of
    // them is written.
    if (table.Keys.isEmpty() && table.Columns == metadata_->Count())
        where_ = "rowid = (SELECT rowid FROM " + table_ + " WHERE " + where_ + " LIMIT 1)";
    return where_;
}

SqliteRowWriter::TableInfo SqliteRowWriter::readTable()
{
    sqlite3_stmt* statement = engine_.Prepared("SELECT name, pk FROM pragma_table_info(?1)");
    const ResetAtEnd reset(statement);
    const QByteArray name = metadata_->BaseTable().toUtf8();
    BindText(statement, 1, ViewOf(name));
    TableInfo table;
    for (; Step(statement); ++table.Columns)
        if (sqlite3_column_int(statement, 1) != 0)
            table.Keys.append(ReadText(statement, 0));
    return table;
}

/// Binds the cells of a row to consecutive parameters.
void SqliteRowWriter::bindRow(sqlite3_stmt* statement, int firstParameter, const char* row)
{
    for (int index = 0; index < metadata_->Count(); ++index)
        BindCell(statement, firstParameter + index, ReadCell(row));
}

QByteArray SqliteRowWriter::columnNames(const std::vector<bool>& chosen) const
{
    QByteArray names;
    for (int index = 0; index < metadata_->Count(); ++index)
        if (chosen[std::size_t(index)])
            names += (names.isEmpty() ? "" : ", ") + QuotedIdentifier(metadata_->At(index).Field);
    return names;
}

const QByteArray& SqliteRowWriter::insertFor(const std::vector<bool>& touched)
{
    if (!insert_.Text.isEmpty() && insert_.For == touched)
        return insert_.Text;
    QByteArray values;
    for (int index = 0; index < metadata_->Count(); ++index)
        if (touched[std::size_t(index)])
            values += (values.isEmpty() ? "" : ", ") + parameter(index + 1);
    const QByteArray columns = values.isEmpty()
                                   ? QByteArrayLiteral(" DEFAULT VALUES")
                                   : " (" + columnNames(touched) + ") VALUES (" + values + ')';
    insert_ = {touched, "INSERT INTO " + table_ + columns};
    // Columns that were not set get defaults and generated numbers, which are read back.
    const std::vector<bool> all(touched.size(), true);
    if (touched != all)
        insert_.Text += " RETURNING " + columnNames(all);
    return insert_.Text;
}

/// Original values are parameters 1 to n, the new ones follow.
const QByteArray& SqliteRowWriter::updateFor(const std::vector<bool>& touched)
{
    if (!update_.Text.isEmpty() && update_.For == touched)
        return update_.Text;
    const int count = metadata_->Count();
    QByteArray settings;
    for (int index = 0; index < count; ++index) {
        if (touched[std::size_t(index)])
            settings += (settings.isEmpty() ? "" : ", ") +
                        QuotedIdentifier(metadata_->At(index).Field) + " = " +
                        parameter(count + index + 1);
    }
    update_ = {touched, "UPDATE " + table_ + " SET " + settings + " WHERE " + where()};
    return update_.Text;
}

std::string SqliteRowWriter::Insert(const char* row, const std::vector<bool>& touched)
{
    sqlite3_stmt* statement = engine_.Prepared(insertFor(touched));
    const ResetAtEnd reset(statement);
    bindRow(statement, 1, row);
    std::string stored;
    while (Step(statement))
        for (int index = 0; index < metadata_->Count(); ++index)
            AppendCell(stored, ReadColumn(statement, index));
    return stored;
}

qint64 SqliteRowWriter::Update(const char* original, const char* row,
                               const std::vector<bool>& touched)
{
    sqlite3_stmt* statement = engine_.Prepared(updateFor(touched));
    const ResetAtEnd reset(statement);
    bindRow(statement, 1, original);
    bindRow(statement, metadata_->Count() + 1, row);
    Step(statement);
    return sqlite3_changes64(engine_.Raw());
}

qint64 SqliteRowWriter::Delete(const char* original)
{
    sqlite3_stmt* statement = engine_.Prepared("DELETE FROM " + table_ + " WHERE " + where());
    const ResetAtEnd reset(statement);
    bindRow(statement, 1, original);
    Step(statement);
    return sqlite3_changes64(engine_.Raw());
}

} // namespace TradeForms
