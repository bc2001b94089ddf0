// The list's context menu, from the key or the mouse button to the clipboard or the file.

#include "Xlsx.h"
#include "controls/Progress.h"
#include "data/Connection.h"
#include "host/HostContext.h"
#include "search/Catalogue.h"
#include "search/SearchWindow.h"
#include "support/ExpectedBoxes.h"
#include "support/ExpectedFiles.h"
#include "support/Keys.h"
#include "support/TestCompany.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QtTest>

namespace tests {

using namespace TradeForms;

namespace {

class ListMenuTest : public ::testing::Test {
protected:
    ListMenuTest()
    {
        HostContext::objCN = company.Connect();
        SearchDialog::Shared(SchBranch()).SetParaIn("ParaInBranchCode", s("0"));
        owner.show();
        QGuiApplication::clipboard()->setText(s("before"));
    }
    ~ListMenuTest() override { HostContext::objCN.reset(); }

    /// Shows a dialog, lets the test drive it, and leaves it by Esc.
    void show(const SearchDeclaration& declaration, const std::function<void(SearchWindow&)>& drive)
    {
        SearchDialog& dialog = SearchDialog::Shared(declaration);
        dialogs.Expect([&](Form& form) {
            drive(dynamic_cast<SearchWindow&>(form));
            Press(form, Qt::Key_Escape);
        });
        dialog.Show(&owner);
    }

    /// The menu that is up, or null.
    static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    /// Chooses a row of the menu with the keyboard.
    static void choose(const char* name)
    {
        ASSERT_TRUE(menu());
        auto* item = menu()->findChild<QAction*>(s(name));
        ASSERT_TRUE(item) << name;
        menu()->setActiveAction(item);
        QTest::keyClick(menu()->windowHandle(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    /// Chooses what takes a while, and presses Esc in the window that tells how far it is.
    static void chooseAndEscape(SearchWindow& window, const char* name)
    {
        bool wasUp = false;
        ClickRow(window, window.List(), 0, Qt::RightButton);
        ASSERT_TRUE(menu());
        QTimer escape;
        QObject::connect(&escape, &QTimer::timeout, &escape, [&] {
            auto* progress = dynamic_cast<Form*>(QApplication::activeModalWidget());
            if (!progress || progress->objectName() != s("Progress") || wasUp)
                return;
            wasUp = true;
            Press(*progress, Qt::Key_X); // nothing special
            Press(*progress, Qt::Key_Escape);
        });
        escape.start(0);
        choose(name);
        EXPECT_TRUE(wasUp);
    }

    static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    /// Many branches, so that it takes a while to save them.
    void addBranches(int count) const
    {
        company.Run(s("with recursive n(i) as (select 1 union all select i + 1 from n"
                      " where i < %1) insert into Branches (BranchCode, BranchName)"
                      " select 10 + i, 'B' || i from n")
                        .arg(count));
    }

    QString pathOf(const char* name) const { return folder.filePath(s(name)); }

    TestCompany company;
    QTemporaryDir folder;
    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    ExpectedFiles files;
    QWidget owner;
};

} // namespace

TEST_F(ListMenuTest, CtrlCInTheListCopiesTheMarkedRow)
{
    show(
        SchBranch(),
        [](SearchWindow& window) {
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(clipboard(), s("1\tقصور"));
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(clipboard(), s("2\tلاہور"));
            EXPECT_EQ(window.ActiveControl(), &window.List());
            EXPECT_TRUE(window.NarrowingField("TxtID").Text().isEmpty());
        });
}

TEST_F(ListMenuTest, CtrlCInAFieldCopiesTheField)
{
    show(
        SchBranch(),
        [](SearchWindow& window) {
            Type(window, s("2"));
            Press(window, Qt::Key_A, Qt::ControlModifier);
            Press(window, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(clipboard(), s("2"));
        });
}

TEST_F(ListMenuTest, CtrlCInAnEmptyListCopiesNothing)
{
    show(
        SchGatePass(),
        [](SearchWindow& window) {
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(clipboard(), s("before"));
        });
}

TEST_F(ListMenuTest, TheMenuKeyBringsTheMenuAndEnterDoesWhatItsFirstRowSays)
{
    show(
        SchBranch(),
        [](SearchWindow& window) {
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_Menu);
            ASSERT_TRUE(menu());
            QTest::keyClick(menu()->windowHandle(), Qt::Key_Return);
            QCoreApplication::processEvents();
            EXPECT_EQ(clipboard(), s("1\tقصور"));
            EXPECT_TRUE(window.isVisible());
        });
}

TEST_F(ListMenuTest, EscLeavesTheMenuAndNotTheDialog)
{
    show(
        SchBranch(),
        [](SearchWindow& window) {
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_Menu);
            ASSERT_TRUE(menu());
            QTest::keyClick(menu()->windowHandle(), Qt::Key_Escape);
            EXPECT_FALSE(menu());
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(clipboard(), s("before"));
        });
}

TEST_F(ListMenuTest, TheRightButtonMarksTheRowUnderItAlone)
{
    show(
        SchBranch(),
        [](SearchWindow& window) {
            ClickRow(window, window.List(), 2, Qt::RightButton);
            EXPECT_EQ(window.List().Row(), 2);
            EXPECT_EQ(window.List().SelectedRows(), QList<int>({2}));
            choose("mniCopyRow");
            EXPECT_EQ(clipboard(), s("3\tپتوکی"));
        });
}

TEST_F(ListMenuTest, TheWholeListIsCopiedWithItsTitles)
{
    show(
        SchBranch(),
        [](SearchWindow& window) {
            ClickRow(window, window.List(), 1, Qt::RightButton);
            choose("mniCopyList");
            EXPECT_EQ(clipboard(), s("کوڈ · Code\tنام · Name\n1\tقصور\n2\tلاہور\n3\tپتوکی\n"));
        });
}

TEST_F(ListMenuTest, AnEmptyListOffersNoRowAndIsSavedAsItsTitles)
{
    files.Expect(s("csv"), pathOf("list.csv"));
    show(SchGatePass(), [this](SearchWindow& window) {
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_Menu);
        ASSERT_TRUE(menu());
        EXPECT_FALSE(menu()->findChild<QAction*>(s("mniCopyRow"))->isEnabled());
        choose("mniSaveCsv");
        QFile csv(pathOf("list.csv"));
        ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
        EXPECT_EQ(csv.readAll().count("\r\n"), 1);
    });
}

TEST_F(ListMenuTest, SavedAsCsvTheListIsAsItStands)
{
    files.Expect(s("csv"), pathOf("list.csv"));
    show(SchStaff(), [this](SearchWindow& window) {
        window.NarrowingField("TxtName").SetText(s("طارق"));
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_F10, Qt::ShiftModifier);
        choose("mniSaveCsv");
        QFile csv(pathOf("list.csv"));
        ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
        EXPECT_EQ(QString::fromUtf8(csv.readAll()),
                  s("\uFEFFکوڈ · Code,نام · Name,پتہ · Address,عہدہ · Post,برانچ · Branch\r\n"
                    "4001,طارق محمود,مین بازار، پتوکی,فرنچائزر,پتوکی\r\n"));
    });
}

TEST_F(ListMenuTest, SavedAsXlsxTheStockIsANumberAndTheCodeAText)
{
    files.Expect(s("xlsx"), pathOf("list.xlsx"));
    show(SchProduct(), [this](SearchWindow& window) {
        ClickRow(window, window.List(), 0, Qt::RightButton);
        choose("mniSaveXlsx");
        const Xlsx sheet(pathOf("list.xlsx"));
        EXPECT_EQ(sheet.RowCount(), 5);
        EXPECT_EQ(sheet.At(s("A2")).Type, s("inlineStr"));
        EXPECT_EQ(sheet.At(s("A2")).Text, s("101"));
        EXPECT_EQ(sheet.At(s("C2")).Type, QString());
        EXPECT_EQ(sheet.At(s("C2")).Text, s("25"));
    });
}

TEST_F(ListMenuTest, WithoutAnAnswerNothingIsSaved)
{
    files.Expect(s("csv"), QString());
    show(SchBranch(), [this](SearchWindow& window) {
        ClickRow(window, window.List(), 0, Qt::RightButton);
        choose("mniSaveCsv");
        EXPECT_TRUE(QDir(folder.path()).isEmpty());
    });
}

TEST_F(ListMenuTest, WhatCannotBeSavedIsToldInTheErrorBox)
{
    files.Expect(s("csv"), pathOf("no/such/list.csv"));
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    show(SchBranch(), [](SearchWindow& window) {
        ClickRow(window, window.List(), 0, Qt::RightButton);
        choose("mniSaveCsv");
        EXPECT_TRUE(window.isVisible());
    });
}

TEST_F(ListMenuTest, EscInTheProgressWindowStopsALongExportAndTheDialogGoesOn)
{
    addBranches(200'000);
    files.Expect(s("csv"), pathOf("list.csv"));
    show(SchBranch(), [this](SearchWindow& window) {
        chooseAndEscape(window, "mniSaveCsv");
        EXPECT_TRUE(QDir(folder.path()).isEmpty());
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), &window);
        EXPECT_TRUE(window.NarrowingField("TxtID").Text().isEmpty());
    });
}

TEST_F(ListMenuTest, EscInTheProgressWindowStopsALongCopyAndTheClipboardKeepsWhatItHeld)
{
    addBranches(200'000);
    QGuiApplication::clipboard()->setText(s("before"));
    show(SchBranch(), [](SearchWindow& window) {
        chooseAndEscape(window, "mniCopyList");
        EXPECT_EQ(clipboard(), s("before"));
    });
}

TEST_F(ListMenuTest, AShortExportNeedsNoProgressWindow)
{
    int shown = 0;
    Progress progress(&owner, {"محفوظ", "Saving"}, Progress::LongWork - 1);
    for (QWidget* window : QApplication::topLevelWidgets())
        shown += window->objectName() == s("Progress") ? 1 : 0;
    EXPECT_EQ(shown, 0);
    EXPECT_TRUE(progress.Reached(1));
}

TEST_F(ListMenuTest, TheRealQuestionProposesANameAndTakesTheTypedOne)
{
    const Modal::SavePresenter seam = Modal::SetSavePresenter({});
    show(SchBranch(), [this](SearchWindow& window) {
        ClickRow(window, window.List(), 0, Qt::RightButton);
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            answer.stop();
            EXPECT_EQ(QFileInfo(dialog->selectedFiles().value(0)).fileName(), s("Find branch.csv"));
            dialog->selectFile(pathOf("mine"));
            QMetaObject::invokeMethod(dialog, "accept");
        });
        answer.start(0);
        choose("mniSaveCsv");
    });
    Modal::SetSavePresenter(seam);
    EXPECT_TRUE(QFile::exists(pathOf("mine.csv")));
}

} // namespace tests
