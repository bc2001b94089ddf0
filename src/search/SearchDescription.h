#pragma once

#include <QDate>
#include <QList>
#include <QString>

// A search dialog is a description; SearchDialog is the one shell that shows them all.
// Statements, clauses and criteria hold places {Name}: see Statement.

namespace TradeForms {

/// Something that the caller sets before the dialog is shown.
struct SearchInput {
    enum class Kind {
        Value,      ///< goes into Clause
        ReadyClause ///< is a clause itself and is appended as it stands
    };
    const char* Name;          ///< "ParaInBranchCode"
    const char* Place;         ///< of the statement, where the clause lands: "BranchFilter"
    Kind Is = Kind::Value;
    const char* Clause = "";   ///< " and BranchCode={ParaInBranchCode}"
    const char* NoClauseFor = "";///< the value for which there is no clause, beside the empty one
};

/// Something that the caller reads after the dialog has returned.
struct SearchResult {
    enum class Kind { Text, Int16, Int32 };
    const char* Name;          ///< "ParaOutGatePassID"
    const char* Field;         ///< of the statement
    Kind Is = Kind::Text;
};

/// A field above the list that narrows it or jumps in it.
struct SearchField {
    enum class Kind {
        Jump,       ///< Text is a criterion; the current row moves to the first that meets it
        QueryAgain, ///< Text is a clause; the list is read again on each change
        OnFilter    ///< Text is a clause that takes effect at the next query
    };
    const char* Name;          ///< "TxtID"
    Kind Is;
    const char* Text;          ///< with a place {Text} for what is typed
    const char* Place;         ///< of the statement, where a clause lands; null for a jump
    const char* Urdu;
    const char* English;
    bool TypesUrdu = false;
};

/// A column of the list.
struct SearchColumn {
    const char* Name;          ///< "ID"
    const char* Field;         ///< of the statement: "BranchCode"
    const char* Urdu;
    const char* English;
    int Width;                 ///< pixels at 100 %
    enum class Kind { Latin, Number, Urdu } Is = Kind::Latin;
    bool Stretch = false;
};

struct SearchDescription {
    const char* Name;          ///< "SchBranch"
    const char* Urdu;          ///< title
    const char* English;
    const char* Statement;     ///< with places {DtpFrom} and {DtpTo} on date-ranged dialogs
    QList<SearchInput> Inputs;
    QList<SearchResult> Results;
    QList<SearchField> Fields; ///< the first one gives the list the focus on Down
    const char* JumpField;     ///< gets what is typed in the list
    QList<SearchColumn> Columns;
    /// The first day of the default range, from today's date; null on dialogs without dates.
    QDate (*DefaultFrom)(const QDate& today) = nullptr;
    bool HasFilterButton = false;
    bool MinimizeWorks = true; ///< whether ImgMin has an action
};

} // namespace TradeForms
