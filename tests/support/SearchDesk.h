#pragma once

#include "search/Catalogue.h"
#include "search/SearchWindow.h"
#include "support/ExpectedBoxes.h"
#include "support/Keys.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <string>

namespace tests {

using namespace TradeForms;

/// Returns the name of a test that runs for each of AllSearchDialogs().
std::string NameOfDialog(const ::testing::TestParamInfo<const SearchDeclaration*>& tested);

/// Test fixture for search dialogs opened on their own. The documents of its company are dated
/// around today: every list has rows within its default date range, and rows outside it.
///
/// Accounts Kot 11, Kot 12, Raja 12 and Gone 7 (which has no area) were sold today or within a few
/// days of it; Kot 13 was sold 91 days ago. Of each kind of voucher, 1 and 2 are in range, 3 is out
/// of range, and 4 has no rows.
class SearchDesk : public ::testing::Test {
protected:
    SearchDesk();
    ~SearchDesk() override;

    /// Shows a dialog and lets the test drive its window, which the callback has to close.
    SearchDialog& Show(const SearchDeclaration& description,
                       const std::function<void(SearchWindow&)>& drive);
    /// The same, but closes the dialog by Esc after the callback.
    SearchDialog& Look(const SearchDeclaration& description,
                       const std::function<void(SearchWindow&)>& look);

    /// Returns the texts of a column from the first row on, separated by spaces.
    static QString Column(SearchWindow& window, const char* column);
    static QString Column(Grid& grid, const char* column);
    static QString Current(SearchWindow& window, const char* column);
    /// Replaces the text of a field by typing, key by key.
    static void TypeInto(SearchWindow& window, const char* field, const QString& text);
    /// Checks that the last statement run contains this text.
    static ::testing::AssertionResult Read(SearchWindow& window, const QString& part);

    /// Returns the date this many days from today, in the format of statements and in that of the
    /// lists.
    static QString Iso(int days);
    static QString Shown(int days);

    TestCompany company;
    QDate today = QDate::currentDate();
    QDate month = QDate(today.year(), today.month(), 1);
    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    QWidget owner;
};

} // namespace tests
