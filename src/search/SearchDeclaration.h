#pragma once

#include "controls/Caption.h"

#include <QByteArray>
#include <QDate>
#include <QList>

// A search dialog is a declaration; SearchDialog is the one shell that shows them all.
// Statements, clauses and criteria hold places {Name}: see Statement.

namespace TradeForms {

/// Something that the caller sets before the dialog is shown.
struct SearchInput {
    enum class Type {
        Value,      ///< goes into Clause
        ReadyClause ///< is a clause itself and is appended as it stands
    };
    const char* Name;  ///< "ParaInBranchCode"
    const char* Place; ///< of the statement, where the clause lands: "BranchFilter"
    Type Kind = Type::Value;
    const char* Clause = "";      ///< " and BranchCode={ParaInBranchCode}"
    const char* NoClauseFor = ""; ///< the one value for which there is no clause; "" is a blank one
};

/// Something that the caller reads after the dialog has returned.
struct SearchResult {
    enum class Type { Text, Int16, Int32 };
    const char* Name;  ///< "ParaOutGatePassID"
    const char* Field; ///< of the statement
    Type Kind = Type::Text;
};

/// A field above the list that narrows it or jumps in it.
struct SearchField {
    enum class Type {
        Jump,       ///< Text is a criterion; the current row moves to the first that meets it
        QueryAgain, ///< Text is a clause; the list is read again on each change
        OnFilter    ///< Text is a clause that takes effect at the next query
    };
    const char* Name; ///< "TxtID"
    Type Kind;
    QByteArray Text;   ///< with a place of the field's name for what is typed
    const char* Place; ///< of the statement, where a clause lands; null for a jump
    TradeForms::Caption Caption;
    bool TypesUrdu = false;
};

/// The pickers DtpFrom and DtpTo. A statement takes them in its places {DtpFrom} and {DtpTo},
/// and the day one month after DtpTo in {MonthAfterDtpTo}.
struct SearchDates {
    using Rule = QDate (*)(const QDate& today);
    Rule From = nullptr; ///< default; null on dialogs without dates
    Rule To = nullptr;   ///< default
    const char* Format = "dd/MM/yyyy";
    bool QueryAgain = true;   ///< the list is read again when a picker changes
    bool WholeMonths = false; ///< before each read the range is widened to whole months
};

/// A column of the list, or of the lines below it.
struct SearchColumn {
    const char* Name;  ///< "ID"
    const char* Field; ///< of the statement: "BranchCode"
    TradeForms::Caption Caption;
    int Width; ///< pixels at 100 %
    enum class Type { Latin, Number, Urdu, Month } Kind = Type::Latin;
    bool Stretch = false;
};

/// A second list that shows the lines of the current voucher.
struct SearchLines {
    QByteArray Statement; ///< empty on dialogs without lines; {ID} is the column of the list
    QList<SearchColumn> Columns;
};

struct SearchDeclaration {
    const char* Name; ///< "SchBranch"
    Caption Title;
    const char* WindowTitle = nullptr; ///< of the task bar; null is the English title
    QByteArray Statement;
    QList<SearchInput> Inputs = {};
    QList<SearchResult> Results;
    /// From the reader's right hand. The first one has the focus at the start, gives it to the
    /// list on Down, and gets what is typed in the list.
    QList<SearchField> Fields;
    SearchDates Dates = {};
    bool BtnFilter = false;   ///< whether there is one
    bool FilterOnF12 = false; ///< whether F12 clicks it
    const char* FilterTip = "";
    QList<SearchColumn> Columns;
    SearchLines GridDetail = {};
    /// LblBalance shows the first field of each, for the current row; empty is no such label.
    QList<QByteArray> LblBalance = {};
    bool LblTotalCards = false; ///< whether there is one, with the record count
    bool MinimizeWorks = true;  ///< whether ImgMin has an action
};

} // namespace TradeForms
