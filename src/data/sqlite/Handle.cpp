#include "data/sqlite/Handle.h"

#include "data/Failure.h"
#include "data/Tokens.h"
#include "data/Utf8.h"

#include <QDir>

namespace TradeForms {

namespace {

QString fileOf(sqlite3* handle)
{
    return QDir::toNativeSeparators(QString::fromUtf8(sqlite3_db_filename(handle, "main")));
}

/// The columns in the message of a constraint: "Salaries.StaffID, Salaries.SalaryMonth".
QString subjectOf(const QString& message)
{
    return message.section(QStringLiteral(": "), 1);
}

QString constraintText(int code, const QString& message)
{
    switch (code) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
        return QStringLiteral("A record with the same key exists already (%1).")
            .arg(subjectOf(message));
    case SQLITE_CONSTRAINT_NOTNULL:
        return QStringLiteral("A value is missing (%1).").arg(subjectOf(message));
    default:
        return QStringLiteral("The database refuses this record: %1.").arg(message);
    }
}

QString textFor(sqlite3* handle, int code)
{
    const QString message = QString::fromUtf8(sqlite3_errmsg(handle));
    // For example when a backup was restored.
    if (code == SQLITE_READONLY_DBMOVED)
        return QStringLiteral("'%1' was replaced while it was open. Open it again.")
            .arg(fileOf(handle));
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("The database is in use by another user. Try again in a moment.");
    case SQLITE_FULL:
        return QStringLiteral("There is no room left on the disk for '%1'. The change was not "
                              "saved. Make room and try again.")
            .arg(fileOf(handle));
    case SQLITE_READONLY:
        return QStringLiteral("'%1' is read-only. The change was not saved.").arg(fileOf(handle));
    case SQLITE_IOERR:
        return QStringLiteral("'%1' could not be read or written: %2. Check the disk and try "
                              "again.")
            .arg(fileOf(handle), message);
    case SQLITE_CANTOPEN:
        return QStringLiteral("'%1' could not be opened.").arg(fileOf(handle));
    case SQLITE_NOTADB:
        return QStringLiteral("'%1' is not a company file.").arg(fileOf(handle));
    case SQLITE_CORRUPT:
        return DamagedText(fileOf(handle), message);
    case SQLITE_CONSTRAINT:
        return constraintText(code, message);
    default:
        return message;
    }
}

/// Whether a text consists of blanks, comments and semicolons only.
bool isBlank(sqlite3* handle, const char* text, const char* end)
{
    while (text < end) {
        sqlite3_stmt* statement = nullptr;
        const char* rest = nullptr;
        const int result = sqlite3_prepare_v2(handle, text, int(end - text), &statement, &rest);
        const PreparedStatement owner(statement);
        if (result != SQLITE_OK || statement || rest == text)
            return false;
        text = rest;
    }
    return true;
}

} // namespace

QString DamagedText(const QString& file, const QString& damage)
{
    return QStringLiteral("'%1' is damaged: %2. Restore it from a backup.").arg(file, damage);
}

void RaiseSqlite(sqlite3* handle)
{
    const int code = sqlite3_extended_errcode(handle);
    throw ProviderFailure(textFor(handle, code), code);
}

PreparedStatement Prepare(sqlite3* handle, const QByteArray& text, bool isPersistent)
{
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    const int result =
        sqlite3_prepare_v3(handle, text.constData(), int(text.size()),
                           isPersistent ? SQLITE_PREPARE_PERSISTENT : 0, &statement, &rest);
    PreparedStatement prepared(statement);
    if (result != SQLITE_OK)
        RaiseSqlite(handle);
    if (!prepared)
        RaiseNoStatement();
    if (!isBlank(handle, rest, text.constData() + text.size()))
        RaiseSecondStatement();
    return prepared;
}

bool Step(sqlite3_stmt* statement)
{
    const int result = sqlite3_step(statement);
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE)
        return false;
    RaiseSqlite(sqlite3_db_handle(statement));
}

void RunScript(sqlite3* handle, const char* script)
{
    if (sqlite3_exec(handle, script, nullptr, nullptr, nullptr) != SQLITE_OK)
        RaiseSqlite(handle);
}

qint64 ReadInteger(sqlite3* handle, const QByteArray& query)
{
    const PreparedStatement statement = Prepare(handle, query, false);
    return Step(statement.get()) ? sqlite3_column_int64(statement.get(), 0) : 0;
}

void BindCell(sqlite3_stmt* statement, int parameter, const Cell& cell)
{
    switch (cell.Kind) {
    case Cell::Type::Null:
        sqlite3_bind_null(statement, parameter);
        break;
    case Cell::Type::Integer:
        sqlite3_bind_int64(statement, parameter, cell.Integer);
        break;
    case Cell::Type::Real:
        sqlite3_bind_double(statement, parameter, cell.Real);
        break;
    case Cell::Type::Text:
        BindText(statement, parameter, cell.Bytes);
        break;
    case Cell::Type::Binary:
        sqlite3_bind_blob64(statement, parameter, cell.Bytes.data(), cell.Bytes.size(),
                            SQLITE_STATIC);
        break;
    }
}

void BindText(sqlite3_stmt* statement, int parameter, std::string_view text)
{
    // A null pointer would bind a null.
    const char* const bytes = text.data() ? text.data() : "";
    sqlite3_bind_text64(statement, parameter, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

Cell ReadColumn(sqlite3_stmt* statement, int column)
{
    // One access to the column instead of three. An unprotected value may be used on one thread.
    sqlite3_value* const value = sqlite3_column_value(statement, column);
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return Cell::FromInteger(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return Cell::FromReal(sqlite3_value_double(value));
    case SQLITE_TEXT:
        return Cell::FromText(ViewOf(value));
    case SQLITE_BLOB: {
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
        return Cell::FromBinary({bytes, std::size_t(sqlite3_value_bytes(value))});
    }
    default:
        return {};
    }
}

QByteArray ReadBytes(sqlite3_stmt* statement, int column)
{
    return ToBytes(ReadColumn(statement, column).Bytes);
}

QString ReadText(sqlite3_stmt* statement, int column)
{
    return FromUtf8(ReadColumn(statement, column).Bytes);
}

QByteArray QuotedIdentifier(const QString& name)
{
    return '"' + name.toUtf8().replace("\"", "\"\"") + '"';
}

std::string_view ViewOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, std::size_t(sqlite3_value_bytes(value)))
                : std::string_view();
}

void ResultText(sqlite3_context* context, std::string_view text)
{
    sqlite3_result_text64(context, text.data() ? text.data() : "", text.size(), SQLITE_TRANSIENT,
                          SQLITE_UTF8);
}

} // namespace TradeForms
