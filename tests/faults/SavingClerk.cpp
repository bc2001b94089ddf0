// A workstation of its own: opens a gate pass window on a company and saves planned passes, one
// after the other, by keys alone.
//
//   saving_clerk COMPANY FIRST-TOKEN COUNT
//
// Tells on its output, a line each: "ready" when the window is up (it then waits for a line to
// start), "saved ID TOKEN" when the form has reported a pass as saved, "race" when the number was
// taken by another, "box TEXT" for any other message box, which ends it, and "done".

#include "data/Connection.h"
#include "data/EngineAccess.h"
#include "data/sqlite/CompanyFile.h"
#include "faults/PlannedPass.h"
#include "host/HostContext.h"
#include "stock/FrmGatePass.h"
#include "support/FakeUser.h"
#include "support/Keys.h"

#include <QApplication>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <unistd.h>

using namespace TradeForms;

namespace {

/// One write a line: what is written is with the reader, even if this process is gone next.
void tell(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    if (write(STDOUT_FILENO, bytes.constData(), std::size_t(bytes.size())) != bytes.size())
        std::_Exit(4);
}

class Clerk {
public:
    explicit Clerk(const QString& company)
    {
        // Others hold the lock only while they save, and on a slow machine that takes its time.
        HostContext::objCN =
            EngineAccess::Connect(OpenCompanyFile(company, std::chrono::minutes(4)));
        HostContext::objSec = std::make_shared<tests::FakeUser>();
        HostContext::UserNo = 1;
        Modal::SetBoxPresenter(
            [this](QWidget*, const Message& message) { return answer(message); });
        form_ = std::make_unique<FrmGatePass>();
        form_->FormLoad();
        form_->ShowModeless(false);
        Activate(*form_);
    }

    void Save(const PlannedPass& pass)
    {
        token_ = pass.Token;
        enter(pass.Driver);
        enter(QStringLiteral("3107"));
        enter(pass.Area);
        enter(QStringLiteral("1"));
        for (const PlannedPass::Row& row : pass.Rows) {
            enter(row.Product);
            enter(QString::number(row.Out));
            enter(QString::number(row.OldBack));
            enter(QString::number(row.NewBack));
        }
        for (isSaved_ = false; !isSaved_;)
            Press(*form_, Qt::Key_S, Qt::ControlModifier);
    }

private:
    void enter(const QString& text)
    {
        Type(*form_, text);
        Press(*form_, Qt::Key_Return);
    }

    MsgAnswer answer(const Message& message)
    {
        if (message.Text == QStringLiteral("Do you want to print this GatePass")) {
            isSaved_ = true;
            tell(QStringLiteral("saved %1 %2").arg(form_->TxtGatePassID.Text()).arg(token_));
            return MsgAnswer::No;
        }
        if (message.Text ==
            QStringLiteral("This Gate Pass ID already exists. A new Gate Psss ID. has been "
                           "generated. Please try again")) {
            tell(QStringLiteral("race"));
            return MsgAnswer::Ok;
        }
        tell(QStringLiteral("box ") + message.Text);
        std::_Exit(3);
    }

    std::unique_ptr<FrmGatePass> form_;
    qlonglong token_ = 0;
    bool isSaved_ = false;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    const qlonglong first = arguments[2].toLongLong();
    const qlonglong count = arguments[3].toLongLong();

    Clerk clerk(arguments[1]);
    tell(QStringLiteral("ready"));
    std::string start;
    std::getline(std::cin, start);
    for (qlonglong token = first; token < first + count; ++token)
        clerk.Save(PlannedPass(token));
    tell(QStringLiteral("done"));
    // As it ends for a user: the window closes, and then the connection.
    return 0;
}
