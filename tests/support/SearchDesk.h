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

/// The name of a test that is run for each of AllSearchDialogs().
std::string NameOfDialog(const ::testing::TestParamInfo<const SearchDeclaration*>& tested);

/// A desk at which search dialogs come up by themselves, on a company whose documents stand
/// around today: every list has rows within its default range, and rows beside it.
///
/// Accounts Kot 11, Kot 12, Raja 12 and Gone 7, whose area is none, were sold today or nearly;
/// Kot 13 was sold 91 days ago. Each kind of voucher has 1 and 2 in range, 3 out of it, and 4
/// that has no rows.
class SearchDesk : public ::testing::Test {
protected:
    SearchDesk();
    ~SearchDesk() override;

    /// Shows a dialog and lets the test drive its window, which has to close it.
    SearchDialog& Show(const SearchDeclaration& description,
                       const std::function<void(SearchWindow&)>& drive);
    /// The same, and leaves it by Esc.
    SearchDialog& Look(const SearchDeclaration& description,
                       const std::function<void(SearchWindow&)>& look);

    /// The texts of a column, from the first row on, with a blank between.
    static QString Column(SearchWindow& window, const char* column);
    static QString Column(Grid& grid, const char* column);
    static QString Current(SearchWindow& window, const char* column);
    /// Types a text into a field, key by key, in place of what it holds.
    static void TypeInto(SearchWindow& window, const char* field, const QString& text);
    /// The statement that was read last has this at its end or within.
    static ::testing::AssertionResult Read(SearchWindow& window, const QString& part);

    /// A day as many days from today, as statements write it and as lists show it.
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
