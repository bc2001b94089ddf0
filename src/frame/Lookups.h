#pragma once

#include "frame/LookupCode.h"

/// The code fields shared by many forms. `find` is the form's own statement that selects the row of
/// a code, with the place {code}. A form adjusts the returned declaration where its field differs.
namespace TradeForms::Lookups {

/// Staff, chosen from SchStaff. `filter` is the clause that narrows the list, such as " and
/// Machenic=1"; empty for all staff.
LookupDeclaration Staff(const CodeField& field, const char* filter, const char* find);
/// Creates the field TxtReceivingCode with its button and name: the person who received the goods.
CodeField ReceivingField(QWidget* form, bool mandatory = false);
/// Any member of staff.
LookupDeclaration Receiving(const CodeField& field);
/// Areas, chosen from SchArea for the user's branch. If `find` has the place {BranchFilter}, only
/// areas of that branch are found. Leaving the field empty opens the list; the code is converted to
/// proper case.
LookupDeclaration Area(const CodeField& field, const char* find);
/// Branches, chosen from SchBranch for the user's branch; {BranchFilter} works as for areas.
/// Leaving the field empty opens the list; a code that is not found is cleared.
LookupDeclaration Branch(const CodeField& field, const char* find);
/// Products, chosen from SchProduct. A code that is not found is cleared.
LookupDeclaration Product(const CodeField& field, const char* find);
/// Accounts, chosen from SchAccounts and found in vuAccounts. A code whose name is shown is not
/// looked up again.
LookupDeclaration Account(const CodeField& field);

} // namespace TradeForms::Lookups
