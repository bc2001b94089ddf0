#pragma once

#include "data/Statement.h"

#include <QDate>
#include <QString>

class QWidget;

// The rules for who may write what. Each function returns true if the user may. Otherwise it shows
// its own refusal in a box over the owner, unless stated otherwise, and returns false. Exceptions
// of the security object and the database are passed on.

namespace TradeForms::Authorisation {

/// Checks the right to modify. Administrators always have it. refusal: the text of the box.
bool MayModify(QWidget* owner, const QString& screenKey, const QString& refusal);
/// Checks the right to delete. Administrators always have it. refusal: the text of the box.
bool MayDelete(QWidget* owner, const QString& screenKey, const QString& refusal);
/// The rule for forms with a posted flag. Modifying a stored voucher that is not posted takes the
/// right to modify; a posted one takes an administrator, and is refused without a message if
/// AllowPostedEdit is off. A voucher not stored yet needs no right. isPosted: a statement that
/// selects the flag of this voucher.
bool PassesPostedRule(QWidget* owner, const QString& screenKey, const Statement& isPosted);
/// Checks that the date lies in the range of voucher dates for which this user may enter records.
/// It binds administrators too.
bool PassesDateWindow(QWidget* owner, const QDate& voucherDate);

/// Returns " and BranchCode={code}" for a user who belongs to one branch; empty for a user of all
/// branches.
Statement BranchFilter();

} // namespace TradeForms::Authorisation
