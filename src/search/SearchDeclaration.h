#pragma once

#include "controls/Caption.h"

#include <QByteArray>
#include <QDate>
#include <QList>

// A search dialog is a declaration; SearchDialog shows any of them.
// Statements, clauses and criteria hold placeholders {Name}: see Statement.

namespace TradeForms {

/// An input parameter, which the caller sets before the dialog is shown.
struct SearchInput {
    enum class Type {
        Value,      ///< is bound in Clause
        ReadyClause ///< is a clause itself and is appended as it stands
    };
    const char* Name;  ///< "ParaInBranchCode"
    const char* Place; ///< placeholder of the statement for the clause: "BranchFilter"
    Type Kind = Type::Value;
    const char* Clause = "";      ///< " and BranchCode={ParaInBranchCode}"
    const char* NoClauseFor = ""; ///< value that adds no clause; "" is a blank one
};

/// An output parameter, which the caller reads after the dialog has returned.
struct SearchResult {
    enum class Type { Text, Int16, Int32 };
    const char* Name;  ///< "ParaOutGatePassID"
    const char* Field; ///< of the statement
    Type Kind = Type::Text;
};

/// A field above the list that filters it or searches in it.
struct SearchField {
    enum class Type {
        Jump,       ///< Text is a criterion; the first matching row becomes the current row
        QueryAgain, ///< Text is a clause; each change reads the list again
        OnFilter    ///< Text is a clause, applied by the next query
    };
    const char* Name; ///< "TxtID"
    Type Kind;
    QByteArray Text;   ///< with a placeholder of the field's name for the typed text
    const char* Place; ///< placeholder of the statement for the clause; null for a jump
    TradeForms::Caption Caption;
    bool TypesUrdu = false;
};

/// The pickers DtpFrom and DtpTo. A statement has the placeholders {DtpFrom}, {DtpTo} and
/// {MonthAfterDtpTo}, the day one month after DtpTo.
struct SearchDates {
    using Rule = QDate (*)(const QDate& today);
    Rule From = nullptr; ///< default; null on dialogs without dates
    Rule To = nullptr;   ///< default
    const char* Format = "dd/MM/yyyy";
    bool QueryAgain = true;   ///< the list is read again when a picker changes
    bool WholeMonths = false; ///< before each read the range is widened to whole months
};

/// A column of the list, or of the detail rows below it.
struct SearchColumn {
    const char* Name;  ///< "ID"
    const char* Field; ///< of the statement: "BranchCode"
    TradeForms::Caption Caption;
    int Width; ///< pixels at 100 %
    enum class Type { Latin, Number, Urdu, Month } Kind = Type::Latin;
    bool Stretch = false;
};

/// A second list with the detail rows of the current voucher.
struct SearchLines {
    QByteArray Statement; ///< empty on dialogs without lines; {ID} is the column of the list
    QList<SearchColumn> Columns;
};

struct SearchDeclaration {
    const char* Name; ///< "SchBranch"
    Caption Title;
    const char* WindowTitle = nullptr; ///< shown in the task bar; null is the English title
    QByteArray Statement;
    QList<SearchInput> Inputs = {};
    QList<SearchResult> Results;
    /// From right to left. The first one has the focus at the start, passes it to the list on Down,
    /// and takes what is typed in the list.
    QList<SearchField> Fields;
    SearchDates Dates = {};
    bool BtnFilter = false;   ///< whether there is one
    bool FilterOnF12 = false; ///< whether F12 clicks it
    const char* FilterTip = "";
    QList<SearchColumn> Columns;
    SearchLines GridDetail = {};
    /// Queries for the current row; LblBalance shows the first field of each. Empty: no such label.
    QList<QByteArray> LblBalance = {};
    bool LblTotalCards = false; ///< whether there is one, with the record count
    bool MinimizeWorks = true;  ///< whether ImgMin has an action
};

} // namespace TradeForms
