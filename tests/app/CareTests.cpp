#include "CareWindow.h"
#include "MainWindow.h"
#include "SampleFixture.h"
#include "Session.h"

#include <TradeForms/Backup.h>
#include <TradeForms/Transfer.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace testing;

namespace tests {

using Host::CareTask;
using Host::CareWindow;
using Host::MainWindow;
using Host::Session;

namespace {

/// Waits for message boxes, keeps what they say and presses Esc.
class BoxReader {
public:
    BoxReader()
    {
        timer_.setInterval(5);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                Text = box->text();
                Icon = box->icon();
                QTest::keyClick(box, Qt::Key_Escape);
            }
        });
        timer_.start();
    }
    QString Text;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;

private:
    QTimer timer_;
};

class Care : public SampleFixture {
protected:
    QString place(const char* name) const { return Folder.filePath(QLatin1String(name)); }

    /// Types a place into a window for a task, presses Enter, and waits for the box at the end.
    BoxReader& Play(CareWindow& window, const QString& place)
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window, patience));
        auto* field = window.findChild<QLineEdit*>(QStringLiteral("TxtPlace"));
        field->setText(place);
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !box_.Text.isEmpty(); }, patience));
        return box_;
    }
    static QString stageOf(const CareWindow& window)
    {
        return window.findChild<QLabel*>(QStringLiteral("LblStage"))->text();
    }

private:
    BoxReader box_;
};

/// A task that goes on until it is stopped.
CareTask endless()
{
    CareTask task = Host::BackupTask(QStringLiteral("company.db"));
    task.Work = [](const QString&, const TradeForms::OnProgress& onProgress) -> QString {
        for (qint64 page = 0;; page = (page + 1) % 1000)
            if (!onProgress({TradeForms::Stage::Copying, {}, page, 1000}))
                throw TradeForms::CancelledFailure();
    };
    return task;
}

} // namespace

TEST_F(Care, OnlyAnAdministratorIsOfferedIt)
{
    Session clerk(Connection, {2, QStringLiteral("clerk")});
    const MainWindow clerks(clerk, File);
    EXPECT_EQ(clerks.findChild<QPushButton*>(QStringLiteral("BtnBackup")), nullptr);
    EXPECT_EQ(clerks.findChild<QPushButton*>(QStringLiteral("BtnMove")), nullptr);

    Session admin(Connection, {1, QStringLiteral("admin")});
    const MainWindow admins(admin, File);
    EXPECT_NE(admins.findChild<QPushButton*>(QStringLiteral("BtnBackup")), nullptr);
    EXPECT_NE(admins.findChild<QPushButton*>(QStringLiteral("BtnMove")), nullptr);
    // A server's company is backed up by the server.
    const MainWindow onServer(admin, QStringLiteral("DSN=Company"));
    EXPECT_EQ(onServer.findChild<QPushButton*>(QStringLiteral("BtnBackup")), nullptr);
}

TEST_F(Care, TheKeysOpenItsWindows)
{
    Session admin(Connection, {1, QStringLiteral("admin")});
    MainWindow menu(admin, File);
    menu.show();
    const auto opened = [&menu](Qt::Key key) {
        QString name;
        menu.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&menu, patience));
        QTimer::singleShot(0, &menu, [&name] {
            if (QWidget* window = QApplication::activeModalWidget()) {
                name = window->objectName();
                QTest::keyClick(window, Qt::Key_Escape);
            }
        });
        QTest::keyClick(menu.focusWidget(), key, Qt::ControlModifier);
        return name.toStdString();
    };
    EXPECT_EQ(opened(Qt::Key_B), "BackupWindow");
    EXPECT_EQ(opened(Qt::Key_M), "MoveWindow");
}

TEST_F(Care, ABackupIsTakenWhileTheCompanyIsOpen)
{
    CareWindow window(Host::BackupTask(File), nullptr);
    EXPECT_THAT(text(window.findChild<QLineEdit*>(QStringLiteral("TxtPlace"))->text()),
                HasSubstr("company-backup-2"));
    const BoxReader& box = Play(window, place("copy.db"));
    EXPECT_EQ(box.Icon, QMessageBox::Information);
    EXPECT_THAT(text(box.Text), AllOf(HasSubstr("The backup is whole"), HasSubstr("copy.db")));
    EXPECT_FALSE(window.isVisible());
    EXPECT_GT(TradeForms::VerifyBackup(place("copy.db")).Rows(), 400);
}

TEST_F(Care, WhatFailsIsToldAndAnotherPlaceCanBeNamed)
{
    CareWindow window(Host::BackupTask(File), nullptr);
    const BoxReader& box = Play(window, place("nowhere/copy.db"));
    EXPECT_EQ(box.Icon, QMessageBox::Critical);
    EXPECT_THAT(text(box.Text), HasSubstr("was not found"));
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.findChild<QLineEdit*>(QStringLiteral("TxtPlace"))->isEnabled());
}

TEST_F(Care, ItCanBeStopped)
{
    CareWindow window(endless(), nullptr);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, patience));
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stageOf(window).startsWith(QLatin1String("Copy")); },
                                patience));
    EXPECT_FALSE(window.findChild<QLineEdit*>(QStringLiteral("TxtPlace"))->isEnabled());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return stageOf(window) == QLatin1String("Stopped"); }, patience));
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.findChild<QLineEdit*>(QStringLiteral("TxtPlace"))->isEnabled());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Care, ClosedInItsMidstItStopsFirst)
{
    auto window = std::make_unique<CareWindow>(endless(), nullptr);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), patience));
    QTest::keyClick(window.get(), Qt::Key_Return);
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return stageOf(*window) == QLatin1String("Stopped"); }, patience));
    QTest::keyClick(window.get(), Qt::Key_Return);
    window.reset();
}

TEST_F(Care, ACompanyIsMovedAndProven)
{
    CareWindow window(Host::MoveTask(File), nullptr);
    const BoxReader& box = Play(window, place("moved.db"));
    EXPECT_EQ(box.Icon, QMessageBox::Information) << text(box.Text);
    EXPECT_THAT(text(box.Text), AllOf(HasSubstr("the same balance on each of 400 accounts"),
                                      HasSubstr("Let everybody log in")));
    TradeForms::TransferOptions compare;
    compare.VerifyOnly = true;
    EXPECT_TRUE(TradeForms::TransferCompany(File, place("moved.db"), compare).IsProven());
}

TEST_F(Care, AServerThatIsNotThereIsTold)
{
    CareWindow window(Host::MoveTask(File), nullptr);
    const BoxReader& box = Play(window, QStringLiteral("DSN=NoSuchSource"));
    EXPECT_EQ(box.Icon, QMessageBox::Critical);
    EXPECT_FALSE(box.Text.isEmpty());
    EXPECT_TRUE(window.isVisible());
}

} // namespace tests
