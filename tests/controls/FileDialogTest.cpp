#include "controls/FileDialog.h"

#include "Desk.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTimer>

namespace TradeForms {

namespace {

const SaveQuestion kQuestion{s("Save the list"), s("Stock in"), s("Spreadsheet"), s("xlsx")};

/// Shows the real dialog, lets the callback drive it, and returns the answer.
QString answered(const std::function<void(QFileDialog& dialog)>& drive)
{
    const Modal::SavePresenter before = Modal::SetSavePresenter({});
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        drive(*dialog);
        EXPECT_FALSE(dialog->isVisible());
        dialog->hide();
    });
    const QString answer = AskWhereToSave(nullptr, kQuestion);
    Modal::SetSavePresenter(before);
    return answer;
}

void press(QFileDialog& dialog, QDialogButtonBox::StandardButton which)
{
    dialog.findChild<QDialogButtonBox*>()->button(which)->click();
}

QString answeredBy(const QString& typed)
{
    return answered([&](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>(s("fileNameEdit"))->setText(typed);
        press(dialog, QDialogButtonBox::Save);
    });
}

} // namespace

TEST(FileDialogTest, AsksForAFileOfItsKindUnderAProposedName)
{
    const QString answer = answered([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), s("Save the list"));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.nameFilters(), QStringList{s("Spreadsheet (*.xlsx)")});
        EXPECT_EQ(dialog.findChild<QLineEdit*>(s("fileNameEdit"))->text(), s("Stock in.xlsx"));
        press(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(answer, QString());
}

TEST(FileDialogTest, GivesTheWholePathWithTheSuffixOfItsKind)
{
    const QTemporaryDir folder;
    EXPECT_EQ(answeredBy(folder.filePath(s("march"))), folder.filePath(s("march.xlsx")));
    EXPECT_EQ(answeredBy(folder.filePath(s("april.xlsx"))), folder.filePath(s("april.xlsx")));
}

TEST(FileDialogTest, BeginsInTheFolderThatWasChosenLast)
{
    const QTemporaryDir folder;
    const auto foldersNextTime = [] {
        QString next;
        answered([&next](QFileDialog& dialog) {
            next = dialog.directory().absolutePath();
            press(dialog, QDialogButtonBox::Cancel);
        });
        return next;
    };
    ASSERT_NE(foldersNextTime(), folder.path());
    answeredBy(folder.filePath(s("march.xlsx")));
    EXPECT_EQ(foldersNextTime(), folder.path());
    EXPECT_EQ(foldersNextTime(), folder.path());
}

} // namespace TradeForms
