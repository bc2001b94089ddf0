#pragma once

#include "frame/LookupCode.h"

/// The code fields that many forms have. `find` is the form's own statement, with the place {code},
/// which selects the row of a code; what else a form's field does differently it sets in what it
/// gets here.
namespace TradeForms::Lookups {

/// SchStaff. `filter` is the clause that narrows the list, such as " and Machenic=1"; empty is all.
LookupDeclaration Staff(const CodeField& field, const char* filter, const char* find);
/// The field TxtReceivingCode with its button and name: who has received the goods.
CodeField ReceivingField(QWidget* form, bool mandatory = false);
/// Any member of staff.
LookupDeclaration Receiving(const CodeField& field);
/// SchArea, for the user's branch. Where `find` has the place {BranchFilter} it takes the areas of
/// that branch alone. An empty field brings up the list; the code is put in proper case.
LookupDeclaration Area(const CodeField& field, const char* find);
/// SchBranch, for the user's branch; `find` as with areas. An empty field brings up the list, and a
/// code that is not found is emptied.
LookupDeclaration Branch(const CodeField& field, const char* find);
/// SchProduct. A code that is not found is emptied.
LookupDeclaration Product(const CodeField& field, const char* find);
/// SchAccounts, by the statement on vuAccounts. A code whose name is there is trusted.
LookupDeclaration Account(const CodeField& field);

} // namespace TradeForms::Lookups
