#pragma once

#include "data/Snapshot.h"
#include "data/TextCompare.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace TradeForms {

/// A criterion of Filter or Find, compiled for the columns of one recordset.
class Criterion {
public:
    /// Comparisons `column op value` joined by `and` and `or`; `and` binds more tightly.
    /// Raises Failure where the text cannot be read or names an unknown column.
    static Criterion Parse(const QString& text, const ResultMetadata& metadata);
    /// The same for a single comparison.
    static Criterion ParseSingle(const QString& text, const ResultMetadata& metadata);

    /// Whether a row of encoded cells meets it.
    bool Holds(const char* row) const;

private:
    friend class CriterionParser;

    enum class Operator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };

    struct Comparison {
        int Field = 0;
        ColumnKind Kind = ColumnKind::Text;
        Operator What = Operator::Equal;
        bool BeginsAlternative = false; ///< follows an `or`
        bool IsNumeric = false;         ///< the value is a number, quoted or not
        bool IsQuoted = false;
        double Number = 0;
        QByteArray Text;
        QDateTime Moment;
        LikePattern Pattern;
    };

    static bool holds(const Comparison& comparison, const Cell& cell);
    static bool holds(Operator what, int order);

    std::vector<Comparison> comparisons_;
};

} // namespace TradeForms
