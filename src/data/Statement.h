#pragma once

#include <TradeForms/Export.h>

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>

namespace TradeForms {

/// How a connection's database wants values written into a statement.
struct TRADEFORMS_EXPORT Dialect {
    /// Form of a date in a literal, in QDate's format letters.
    QString DateFormat = QStringLiteral("yyyy-MM-dd");
    /// Form of a date-time in a literal.
    QString DateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
};

/// One statement, or one clause or criterion of it, with places for values.
///
///     Statement("Select * FROM Areas  where AreaCode='{Code}'{BranchFilter}")
///         .Bind("Code", text)
///         .Splice("BranchFilter", filter)
///
/// A place that stands between single quotes is quoted, any other is bare. A quoted value that
/// contains a quote, and a bare one that is not a number, make the statement fail when it is
/// run: a typed value can fail a statement and can never change its meaning.
class TRADEFORMS_EXPORT Statement {
public:
    Statement() = default;
    explicit Statement(const QString& text);
    explicit Statement(const char* text) : Statement(QString::fromUtf8(text)) {}

    /// Fills every place {name}. Takes text, whole numbers, doubles, booleans (1 and 0), QDate
    /// and QDateTime. A double is written in full; a date in the connection's own form.
    Statement& Bind(const char* name, const QVariant& value);
    /// Puts another statement's text, with its values, in every place {name}.
    Statement& Splice(const char* name, const Statement& clause);

    bool IsEmpty() const { return pieces_.isEmpty(); }

    /// The finished text. Raises Failure with the server's way of saying it where a value does
    /// not fit its place, or where a place was left open.
    QString Text(const Dialect& dialect = {}) const;

private:
    struct Piece {
        QString Text; // literal text, or the place's name
        bool IsPlaceholder = false;
        bool Quoted = false;
        bool Bound = false;
        QVariant Value;
    };
    QList<Piece> pieces_;
};

} // namespace TradeForms
