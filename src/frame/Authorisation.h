#pragma once

#include "data/Statement.h"

#include <QDate>
#include <QString>

class QWidget;

// Who may write what. Each test says its own refusal in a box over the owner and gives false;
// a failure of the security object or the database leaves it as an exception.

namespace TradeForms::Authorisation {

/// The plain right to modify. Administrators pass.
bool MayModify(QWidget* owner, const QString& screenKey, const QString& refusal);
/// The plain right to delete. Administrators pass.
bool MayDelete(QWidget* owner, const QString& screenKey, const QString& refusal);
/// The rule of forms with a posted flag: a stored voucher that is not posted takes the right to
/// modify, a posted one an administrator; without AllowPostedEdit a posted one is refused
/// silently. A voucher that is not stored yet takes nothing.
/// isPosted: a statement that selects the flag of this voucher.
bool PassesPostedRule(QWidget* owner, const QString& screenKey, const Statement& isPosted);
/// The window of voucher dates in which this user may enter records, for administrators too.
bool PassesDateWindow(QWidget* owner, const QDate& voucherDate);

/// " and BranchCode={code}" for a user who belongs to one branch; empty for all branches.
Statement BranchFilter();

} // namespace TradeForms::Authorisation
