#include "data/Criterion.h"

#include "data/Failure.h"
#include "data/Numbers.h"
#include "data/Utf8.h"

#include <optional>

namespace TradeForms {

namespace {

template <class T> int orderOf(const T& first, const T& second)
{
    return first < second ? -1 : int(second < first);
}

/// The number in a cell: a number, or a text that represents one.
std::optional<double> numberOf(const Cell& cell)
{
    switch (cell.Kind) {
    case Cell::Type::Integer:
        return double(cell.Integer);
    case Cell::Type::Real:
        return cell.Real;
    case Cell::Type::Text: {
        const QString text = FromUtf8(cell.Bytes);
        if (IsNumeric(text))
            return text.trimmed().toDouble();
        break;
    }
    default:
        break;
    }
    return std::nullopt;
}

} // namespace

class CriterionParser {
public:
    CriterionParser(const QString& text, const ResultMetadata& metadata)
        : text_(text), metadata_(metadata)
    {
    }

    Criterion Parse(bool isSingle)
    {
        Criterion criterion;
        criterion.comparisons_.push_back(comparison());
        for (skipBlanks(); at_ < text_.size(); skipBlanks()) {
            const QString joint = word();
            const bool isOr = isWord(joint, "or");
            if (isSingle || (!isOr && !isWord(joint, "and")))
                fail();
            criterion.comparisons_.push_back(comparison());
            criterion.comparisons_.back().BeginsAlternative = isOr;
        }
        return criterion;
    }

private:
    using Operator = Criterion::Operator;

    [[noreturn]] void fail() const
    {
        throw Failure(QStringLiteral("The criterion '%1' cannot be read.").arg(text_));
    }

    static bool isWord(const QString& word, const char* wanted)
    {
        return word.compare(QLatin1String(wanted), Qt::CaseInsensitive) == 0;
    }

    void skipBlanks()
    {
        while (at_ < text_.size() && text_[at_].isSpace())
            ++at_;
    }

    QString word()
    {
        skipBlanks();
        const qsizetype start = at_;
        while (at_ < text_.size() && (text_[at_].isLetterOrNumber() || text_[at_] == u'_'))
            ++at_;
        return text_.sliced(start, at_ - start);
    }

    /// The text up to the closing character, in which a doubled one stands for one. Moves past it.
    QString enclosed(QChar close)
    {
        QString content;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == close) {
                ++at_;
                if (at_ >= text_.size() || text_[at_] != close)
                    return content;
            }
            content += text_[at_];
        }
        fail();
    }

    QString columnName()
    {
        skipBlanks();
        if (at_ < text_.size() && text_[at_] == u'[')
            return enclosed(u']');
        return word();
    }

    Operator comparisonOperator()
    {
        static constexpr struct {
            const char* Sign;
            Operator What;
        } signs[] = {{"<>", Operator::NotEqual},
                     {"<=", Operator::LessOrEqual},
                     {">=", Operator::GreaterOrEqual},
                     {"=", Operator::Equal},
                     {"<", Operator::Less},
                     {">", Operator::Greater}};
        skipBlanks();
        for (const auto& sign : signs) {
            const QLatin1String written(sign.Sign);
            if (QStringView(text_).sliced(at_).startsWith(written)) {
                at_ += written.size();
                return sign.What;
            }
        }
        if (!isWord(word(), "like"))
            fail();
        return Operator::Like;
    }

    /// A value without quotes, which ends at the next blank.
    QString bareValue()
    {
        const qsizetype start = at_;
        while (at_ < text_.size() && !text_[at_].isSpace())
            ++at_;
        return text_.sliced(start, at_ - start);
    }

    Criterion::Comparison comparison()
    {
        Criterion::Comparison result;
        const QString name = columnName();
        result.Field = metadata_.IndexOf(QStringView(name));
        if (name.isEmpty())
            fail();
        if (result.Field < 0)
            throw Failure(QStringLiteral("There is no column '%1'.").arg(name));
        result.Kind = metadata_.At(result.Field).Kind;
        result.What = comparisonOperator();

        skipBlanks();
        result.IsQuoted = at_ < text_.size() && text_[at_] == u'\'';
        const QString value = result.IsQuoted ? enclosed(u'\'') : bareValue();
        result.IsNumeric = IsNumeric(value);
        if (!result.IsQuoted && !result.IsNumeric)
            fail();
        // A quoted number that is too large for a double is compared as text.
        if (result.IsNumeric)
            result.Number = result.IsQuoted ? value.trimmed().toDouble() : Val(value);
        result.Text = value.toUtf8();
        result.Moment = DateTimeFromText(ViewOf(result.Text));
        if (result.What == Operator::Like)
            result.Pattern = LikePattern::Criterion(ViewOf(result.Text));
        return result;
    }

    const QString& text_;
    const ResultMetadata& metadata_;
    qsizetype at_ = 0;
};

Criterion Criterion::Parse(const QString& text, const ResultMetadata& metadata)
{
    return CriterionParser(text, metadata).Parse(false);
}

Criterion Criterion::ParseSingle(const QString& text, const ResultMetadata& metadata)
{
    return CriterionParser(text, metadata).Parse(true);
}

bool Criterion::Holds(const char* row) const
{
    bool result = true;
    for (const Comparison& comparison : comparisons_) {
        if (comparison.BeginsAlternative) {
            if (result)
                return true;
            result = true;
        }
        if (result)
            result = holds(comparison, CellAt(row, comparison.Field));
    }
    return result;
}

bool Criterion::holds(Operator what, int order)
{
    switch (what) {
    case Operator::Equal:
        return order == 0;
    case Operator::NotEqual:
        return order != 0;
    case Operator::Less:
        return order < 0;
    case Operator::Greater:
        return order > 0;
    case Operator::LessOrEqual:
        return order <= 0;
    case Operator::GreaterOrEqual:
        return order >= 0;
    case Operator::Like:
        break;
    }
    Q_UNREACHABLE();
}

/// No comparison holds for a null.
bool Criterion::holds(const Comparison& comparison, const Cell& cell)
{
    if (cell.IsNull())
        return false;
    if (cell.Kind == Cell::Type::Integer && comparison.IsNumeric &&
        comparison.What != Operator::Like)
        return holds(comparison.What, orderOf(double(cell.Integer), comparison.Number));
    const bool isText = cell.Kind == Cell::Type::Text;
    if (comparison.What == Operator::Like) {
        if (isText)
            return comparison.Pattern.Matches(cell.Bytes);
        const QByteArray text = TextOf(ValueOf(cell, comparison.Kind)).toUtf8();
        return comparison.Pattern.Matches(ViewOf(text));
    }
    const bool isDate =
        comparison.Kind == ColumnKind::Date || comparison.Kind == ColumnKind::DateTime;
    if (isText && isDate && comparison.Moment.isValid()) {
        const QDateTime moment = DateTimeFromText(cell.Bytes);
        return moment.isValid() && holds(comparison.What, orderOf(moment, comparison.Moment));
    }
    if (isText && comparison.IsQuoted)
        return holds(comparison.What, CompareText(cell.Bytes, ViewOf(comparison.Text)));
    if (comparison.IsNumeric) {
        const std::optional<double> number = numberOf(cell);
        return number && holds(comparison.What, orderOf(*number, comparison.Number));
    }
    const QByteArray text = TextOf(ValueOf(cell, comparison.Kind)).toUtf8();
    return holds(comparison.What, CompareText(ViewOf(text), ViewOf(comparison.Text)));
}

} // namespace TradeForms
