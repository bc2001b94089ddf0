#pragma once

#include "data/Cells.h"

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <memory>
#include <string_view>

// RAII handles, typed access and exceptions for the SQLite C API.

namespace TradeForms {

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Resets a statement and its parameters at the end of a scope.
class ResetAtEnd {
public:
    explicit ResetAtEnd(sqlite3_stmt* statement) : statement_(statement) {}
    ~ResetAtEnd()
    {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    ResetAtEnd(const ResetAtEnd&) = delete;
    ResetAtEnd& operator=(const ResetAtEnd&) = delete;

private:
    sqlite3_stmt* statement_;
};

/// The text for the user about a damaged file.
QString DamagedText(const QString& file, const QString& damage);

/// Raises ProviderFailure with a text for the user for the last error of a connection.
[[noreturn]] void RaiseSqlite(sqlite3* handle);

/// Prepares one statement; isPersistent is for one that is kept long. Raises ProviderFailure, also
/// where the text holds more than one statement or none.
PreparedStatement Prepare(sqlite3* handle, const QByteArray& text, bool isPersistent = true);

/// Steps a statement. Returns true for a row and false at the end. Raises ProviderFailure.
bool Step(sqlite3_stmt* statement);

/// Runs a script of statements without results. Raises ProviderFailure.
void RunScript(sqlite3* handle, const char* script);

/// Runs a query. Returns the first column of the first row as a number, 0 where there is none.
/// Raises ProviderFailure.
qint64 ReadInteger(sqlite3* handle, const QByteArray& query);

/// Binds a cell or a text to a parameter. The bytes must exist until the statement is reset.
void BindCell(sqlite3_stmt* statement, int parameter, const Cell& cell);
void BindText(sqlite3_stmt* statement, int parameter, std::string_view text);

/// A column of the current row; its bytes are valid until the next step.
Cell ReadColumn(sqlite3_stmt* statement, int column);

/// A copy of a text column of the current row.
QByteArray ReadBytes(sqlite3_stmt* statement, int column);
QString ReadText(sqlite3_stmt* statement, int column);

/// A name in double quotes, for use in statements.
QByteArray QuotedIdentifier(const QString& name);

std::string_view ViewOf(sqlite3_value* value);
void ResultText(sqlite3_context* context, std::string_view text);

} // namespace TradeForms
