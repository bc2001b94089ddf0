#pragma once

#include "Clerk.h"
#include "support/Text.h"

#include <QString>
#include <QStringList>

// Days of work, each played through the whole program on a sample company of its own.

namespace journeys {

using tests::s;

/// The rows of a query, read through a connection of its own; cells joined by '|'.
QStringList rows(const QString& file, const QString& sql);

/// From the login window to the menu.
void logIn(Clerk& clerk, const QString& user);
/// From the menu to a screen, found by typing a part of its name.
void openScreen(Clerk& clerk, const QString& typed, const QString& window);

void GatePassDay(Clerk& clerk, const QString& file, const QString& printed);
/// The other program of the gate pass day: enters a pass, tells its number, and saves when told.
void SecondGatePassClerk(Clerk& clerk, const QString& file);
void StockDay(Clerk& clerk, const QString& file);

} // namespace journeys
