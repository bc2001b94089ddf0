#include "data/Statement.h"

#include "data/Failure.h"
#include "data/Numbers.h"

#include <cmath>

namespace TradeForms {

namespace {

bool isNameStart(QChar letter)
{
    return (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z') ||
           letter == u'_';
}

bool isNamePart(QChar letter)
{
    return isNameStart(letter) || (letter >= u'0' && letter <= u'9');
}

/// The length of the placeholder {name} at a position; 0 where there is none.
qsizetype placeholderLength(const QString& text, qsizetype at)
{
    if (text[at] != u'{' || at + 1 >= text.size() || !isNameStart(text[at + 1]))
        return 0;
    qsizetype end = at + 2;
    while (end < text.size() && isNamePart(text[end]))
        ++end;
    return end < text.size() && text[end] == u'}' ? end + 1 - at : 0;
}

QString shortened(const QString& text)
{
    constexpr qsizetype shown = 60;
    return text.size() <= shown ? text : text.first(shown) + QChar(0x2026);
}

[[noreturn]] void raiseSyntax(const QString& near)
{
    throw Failure(QStringLiteral("Incorrect syntax near '%1'.").arg(shortened(near)));
}

/// The last word or character of a text, to be named in an error message.
QString lastToken(const QString& text)
{
    const QStringView trimmed = QStringView(text).trimmed();
    qsizetype start = trimmed.size();
    while (start > 0 && (trimmed[start - 1].isLetterOrNumber() || trimmed[start - 1] == u'_'))
        --start;
    if (start == trimmed.size())
        start = qMax(qsizetype(0), start - 1);
    return trimmed.sliced(start).toString();
}

QString doubleText(double number)
{
    if (!std::isfinite(number))
        throw OverflowFailure();
    if (number == 0)
        return QStringLiteral("0");
    const double size = std::fabs(number);
    const char form = size >= 1e-5 && size < 1e17 ? 'f' : 'g';
    return QString::number(number, form, QLocale::FloatingPointShortest);
}

/// A value as it is written into a statement, not yet checked.
QString valueText(const QVariant& value, const Dialect& dialect)
{
    if (value.isNull())
        return QString();
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case QMetaType::Double:
    case QMetaType::Float:
        return doubleText(value.toDouble());
    case QMetaType::QDate:
        return value.toDate().toString(dialect.DateFormat);
    case QMetaType::QDateTime:
        return value.toDateTime().toString(dialect.DateTimeFormat);
    default:
        return value.toString();
    }
}

void appendQuoted(QString& text, const QString& value)
{
    if (value.contains(u'\''))
        throw Failure(QStringLiteral("Unclosed quotation mark after the character string '%1'.")
                          .arg(shortened(value)));
    text += value;
}

void appendBare(QString& text, const QString& value)
{
    const QString number = value.trimmed();
    if (number.isEmpty())
        raiseSyntax(lastToken(text));
    if (!IsNumeric(number))
        raiseSyntax(number);
    // Two signs in a row would begin a comment.
    if (number.startsWith(u'-') && text.endsWith(u'-'))
        text += u' ';
    text += number;
}

} // namespace

Statement::Statement(const QString& text)
{
    bool quoted = false;
    qsizetype start = 0;
    const auto addText = [&](qsizetype end) {
        if (end > start)
            pieces_.append({text.sliced(start, end - start), false, false, false, {}});
    };
    for (qsizetype at = 0; at < text.size();) {
        if (text[at] == u'\'')
            quoted = !quoted;
        const qsizetype length = placeholderLength(text, at);
        if (length == 0) {
            ++at;
            continue;
        }
        addText(at);
        pieces_.append({text.sliced(at + 1, length - 2), true, quoted, false, {}});
        at += length;
        start = at;
    }
    addText(text.size());
}

Statement& Statement::Bind(const char* name, const QVariant& value)
{
    const QLatin1String wanted(name);
    for (Piece& piece : pieces_) {
        if (piece.IsPlaceholder && piece.Text == wanted) {
            piece.Value = value;
            piece.Bound = true;
        }
    }
    return *this;
}

Statement& Statement::Splice(const char* name, const Statement& clause)
{
    const QLatin1String wanted(name);
    QList<Piece> spliced;
    spliced.reserve(pieces_.size() + clause.pieces_.size());
    for (const Piece& piece : std::as_const(pieces_))
        if (piece.IsPlaceholder && piece.Text == wanted)
            spliced += clause.pieces_;
        else
            spliced += piece;
    pieces_ = std::move(spliced);
    return *this;
}

QString Statement::Text(const Dialect& dialect) const
{
    QString text;
    for (const Piece& piece : pieces_) {
        if (!piece.IsPlaceholder) {
            text += piece.Text;
            continue;
        }
        if (!piece.Bound)
            throw Failure(QStringLiteral("The statement has no value for '%1'.").arg(piece.Text));
        const QString value = valueText(piece.Value, dialect);
        if (piece.Quoted)
            appendQuoted(text, value);
        else
            appendBare(text, value);
    }
    return text;
}

} // namespace TradeForms
