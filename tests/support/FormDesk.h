#pragma once

#include "controls/MsgBox.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "frame/VoucherForm.h"
#include "host/HostContext.h"
#include "search/SearchWindow.h"
#include "support/ExpectedBoxes.h"
#include "support/FakeUser.h"
#include "support/Keys.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QtTest>

#include <memory>

namespace tests {

using namespace TradeForms;

/// Test fixture: a company, a user, and windows of one form driven by real keys and clicks.
template <class TheForm> class FormDesk : public ::testing::Test {
protected:
    FormDesk() : connection(company.Connect())
    {
        HostContext::objCN = connection;
        HostContext::objSec = user;
        HostContext::UserNo = 1;
        HostContext::ServerMode = false;
    }

    ~FormDesk() override
    {
        form.reset();
        HostContext::objCN.reset();
        HostContext::objSec.reset();
    }

    /// Opens a window on the company and waits until it is active.
    void Open() { form = Another(); }

    /// Opens a further window on the same connection.
    std::unique_ptr<TheForm> Another()
    {
        auto another = std::make_unique<TheForm>();
        Prepare(*another);
        another->FormLoad();
        another->ShowModeless(false);
        another->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(another.get()));
        return another;
    }

    /// Override to set the form's inputs before it loads.
    virtual void Prepare(TheForm&) {}

    // What the clerk does, using only the keyboard.

    /// Types a text and presses Enter.
    void Enter(const QString& text)
    {
        Type(*form, text);
        Press(*form, Qt::Key_Return);
    }
    void Ctrl(Qt::Key key) { Press(*form, key, Qt::ControlModifier); }
    /// Opens a stored voucher through its search dialog by Ctrl+O.
    void OpenStored(int id)
    {
        dialogs.Expect(Choose(QString::number(id)));
        Ctrl(Qt::Key_O);
    }
    /// Returns a callback for a search dialog that types into its jump field and presses Enter.
    std::function<void(Form&)> Choose(const QString& typed)
    {
        return [typed](Form& dialog) {
            Type(dialog, typed);
            Press(dialog, Qt::Key_Return);
        };
    }
    /// Returns a callback that closes the dialog by Esc.
    std::function<void(Form&)> Cancel()
    {
        return [](Form& dialog) { Press(dialog, Qt::Key_Escape); };
    }

    /// Expects the question whether to close without saving, and answers it.
    void ExpectCloseQuestion(MsgAnswer answer, std::function<void()> meanwhile = {})
    {
        boxes.Expect({QStringLiteral("Are you sure to close without save?"), MsgIcon::Question,
                      QStringLiteral("Alert"), MsgButtons::YesNo},
                     answer, std::move(meanwhile));
    }

    /// Deletes the opened voucher by Ctrl+R, with a trigger in the database that refuses to delete
    /// a header before its rows.
    void DeleteRowsFirst(const QString& header, const QString& body, const QString& id)
    {
        company.Run(QStringLiteral("create trigger RowsFirst before delete on %1"
                                   " when exists (select 1 from %2 where %3 = old.%3)"
                                   " begin select raise(abort, 'the rows are still there'); end")
                        .arg(header, body, id));
        boxes.Expect({QStringLiteral("Do you want to remove this record?"), MsgIcon::Question,
                      QStringLiteral("Confirmation"), MsgButtons::YesNo},
                     MsgAnswer::Yes);
        Ctrl(Qt::Key_R);
        EXPECT_EQ(boxes.Left(), 0) << "no question";
        EXPECT_EQ(form->FormState(), VoucherForm::State::New);
    }

    // What the test can see.

    TheForm& It() { return *form; }
    bool HasFocus(const Control& control) { return form->ActiveControl() == &control; }
    QString Cell(int row, const char* column)
    {
        return form->Rows.Cell(row, QString::fromLatin1(column));
    }
    int FilledRows()
    {
        int filled = 0;
        for (int row = 0; row < form->Rows.RowCount(); ++row)
            filled += Cell(row, "ID").trimmed().isEmpty() ? 0 : 1;
        return filled;
    }
    int Count(const QString& table)
    {
        return company.Scalar(QStringLiteral("select count(*) from ") + table).toInt();
    }
    /// Returns the rows of a query, each as its cells joined by '|', with nulls as "null".
    QStringList Lines(const QString& sql)
    {
        QStringList lines;
        for (const QVariantList& row : company.Rows(sql)) {
            QStringList texts;
            for (const QVariant& value : row)
                texts.append(value.isNull() ? QStringLiteral("null") : value.toString());
            lines.append(texts.join(QLatin1Char('|')));
        }
        return lines;
    }

    // Messages that tests expect often.

    static Message Failed(const QString& text)
    {
        return {text, MsgIcon::Stop, QStringLiteral("Error occured")};
    }
    static Message Refused(const QString& text)
    {
        return {text, MsgIcon::Stop, QStringLiteral("Error")};
    }

    TestCompany company;
    std::shared_ptr<Connection> connection;
    std::shared_ptr<FakeUser> user = std::make_shared<FakeUser>();
    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    std::unique_ptr<TheForm> form;
};

} // namespace tests
