#pragma once

#include <TradeForms/Export.h>

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>

namespace TradeForms {

/// How values are written into statements for a database.
struct TRADEFORMS_EXPORT Dialect {
    /// Format of a date literal, as QDate::toString takes it.
    QString DateFormat = QStringLiteral("yyyy-MM-dd");
    /// Format of a date-time literal, as QDateTime::toString takes it.
    QString DateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
};

/// One statement, or one clause or criterion of it, with placeholders for values.
///
///     Statement("Select * FROM Areas  where AreaCode='{Code}'{BranchFilter}")
///         .Bind("Code", text)
///         .Splice("BranchFilter", filter)
///
/// A placeholder between single quotes is quoted, any other is bare. A quoted value that contains a
/// quote and a bare value that is not a number make the statement fail when it is run: a value that
/// a user types can make a statement fail but cannot change its meaning.
class TRADEFORMS_EXPORT Statement {
public:
    Statement() = default;
    explicit Statement(const QString& text);
    explicit Statement(const char* text) : Statement(QString::fromUtf8(text)) {}

    /// Sets the value of every placeholder {name}: a QString, a whole number, a double (written
    /// with all its digits), a bool (1 or 0), a QDate or a QDateTime (in the dialect's format).
    /// Returns this statement.
    Statement& Bind(const char* name, const QVariant& value);
    /// Replaces every placeholder {name} by the text of another statement, with its values. Returns
    /// this statement.
    Statement& Splice(const char* name, const Statement& clause);

    bool IsEmpty() const { return pieces_.isEmpty(); }

    /// The text with all values filled in. Raises Failure, in the server's words, where a value
    /// does not fit its placeholder, and where a placeholder has no value.
    QString Text(const Dialect& dialect = {}) const;

private:
    struct Piece {
        QString Text; // literal text, or the name of a placeholder
        bool IsPlaceholder = false;
        bool Quoted = false;
        bool Bound = false;
        QVariant Value;
    };
    QList<Piece> pieces_;
};

} // namespace TradeForms
