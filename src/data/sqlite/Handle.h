#pragma once

#include "data/Cells.h"

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <memory>
#include <string_view>

// The little that the C API lacks of C++: owners, views and failures.

namespace TradeForms {

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Resets a statement when it has been read, or not read to its end.
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

/// The words for the user about a file that is damaged in the way told.
QString DamagedText(const QString& file, const QString& damage);

/// Raises ProviderFailure with words for the user for what the handle last reported.
[[noreturn]] void RaiseSqlite(sqlite3* handle);

/// Prepares one statement. Raises ProviderFailure, also where text follows the statement's end
/// and where there is none.
PreparedStatement Prepare(sqlite3* handle, const QByteArray& text, bool isPersistent = true);

/// Steps; true for a row, false for the end. Raises ProviderFailure.
bool Step(sqlite3_stmt* statement);

/// Runs a script of statements that give no rows. Raises ProviderFailure.
void RunScript(sqlite3* handle, const char* script);

/// Number of the first column of the first row, 0 where there is none.
qint64 ReadInteger(sqlite3* handle, const QByteArray& query);

/// Binds a cell; its bytes must live until the statement is reset.
void BindCell(sqlite3_stmt* statement, int parameter, const Cell& cell);
void BindText(sqlite3_stmt* statement, int parameter, std::string_view text);

/// A column of the current row; its bytes live until the next step.
Cell ReadColumn(sqlite3_stmt* statement, int column);

/// A column of the current row as text; its own copy.
QByteArray ReadBytes(sqlite3_stmt* statement, int column);
QString ReadText(sqlite3_stmt* statement, int column);

/// A name as it may stand in any statement: in double quotes.
QByteArray QuotedIdentifier(const QString& name);

std::string_view ViewOf(sqlite3_value* value);
void ResultText(sqlite3_context* context, std::string_view text);

} // namespace TradeForms
