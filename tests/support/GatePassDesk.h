#pragma once

#include "data/Connection.h"
#include "data/Recordset.h"
#include "search/SearchWindow.h"
#include "stock/FrmGatePass.h"
#include "support/ExpectedBoxes.h"
#include "support/FakeUser.h"
#include "support/Keys.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <memory>

namespace tests {

using namespace TradeForms;

/// A clerk's desk: a company, a user, and gate pass windows driven by real keys and clicks.
class GatePassDesk : public ::testing::Test {
protected:
    GatePassDesk();
    ~GatePassDesk() override;

    /// Opens a window on the company and waits until it is active.
    void Open();
    /// A second window on the same connection.
    std::unique_ptr<FrmGatePass> Another();

    // What the clerk does, by keyboard alone.
    void Enter(const QString& text);              ///< types and presses Enter
    void EnterHeader();                           ///< driver 2014, receiver 3107, Kot, branch 1
    void EnterRow(const QString& product, const QString& out, const QString& oldBack = {},
                  const QString& newBack = {});
    void Ctrl(Qt::Key key);
    /// Saves by Ctrl+S and answers the print question with No.
    void Save();
    /// Enters and saves a pass with one row; gives its number.
    int Stored(const QString& product = QStringLiteral("101"),
               const QString& out = QStringLiteral("3"));
    /// Opens a stored pass through its search dialog by Ctrl+O.
    void OpenStored(int id);
    /// Presses the keys of a search dialog: types into its jump field and presses Enter.
    std::function<void(Form&)> Choose(const QString& typed);
    /// Leaves the dialog by Esc.
    std::function<void(Form&)> Cancel();

    // What is to be seen.
    FrmGatePass& It() { return *form; }
    bool HasFocus(const Control& control) { return form->ActiveControl() == &control; }
    QString Cell(int row, const char* column);
    int FilledRows();
    /// Rows of the body table, "product|out|old|new", in the order of their product.
    QStringList BodyOf(int id);
    int Count(const QString& table);

    // Messages that tests expect often.
    static Message PrintQuestion();
    static Message Failed(const QString& text);
    static Message Refused(const QString& text);

    TestCompany company;
    std::shared_ptr<Connection> connection;
    std::shared_ptr<FakeUser> user = std::make_shared<FakeUser>();
    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    std::unique_ptr<FrmGatePass> form;
};

} // namespace tests
