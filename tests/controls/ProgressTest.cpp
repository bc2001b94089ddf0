#include "controls/Progress.h"

#include "Desk.h"

#include <QProgressBar>

namespace TradeForms {

namespace {

class ProgressTest : public DeskTest {
protected:
    /// Returns the progress window, or null if there is none.
    static Form* window()
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == s("Progress") && widget->isVisible())
                return qobject_cast<Form*>(widget);
        return nullptr;
    }
    static const Control& button() { return *window()->findChild<JeweledButton*>(s("BtnCancel")); }

    static constexpr int kRows = Progress::LongWork;
};

} // namespace

TEST_F(ProgressTest, LongWorkHasAWindowOverItsOwnerUntilItIsDone)
{
    {
        Progress progress(&desk, {"فہرست", "Writing the list"}, kRows);
        ASSERT_TRUE(window());
        EXPECT_EQ(window()->windowTitle(), s("Writing the list"));
        EXPECT_EQ(window()->windowHandle()->transientParent(), desk.windowHandle());
        EXPECT_EQ(window()->windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE(progress.Reached(1));
    }
    EXPECT_FALSE(window());
}

TEST_F(ProgressTest, BriefWorkHasNoWindow)
{
    Progress progress(&desk, {"", "Writing the list"}, kRows - 1);
    EXPECT_FALSE(window());
    EXPECT_TRUE(progress.Reached(1));
}

TEST_F(ProgressTest, ItTellsHowFarTheWorkIs)
{
    Progress progress(&desk, {"", "Writing the list"}, kRows);
    const auto* bar = window()->findChild<QProgressBar*>();
    EXPECT_EQ(bar->maximum(), kRows);
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress.Reached(5000) && bar->value() == 5000; }));
}

TEST_F(ProgressTest, TheButtonAndItsKeysStopTheWork)
{
    const std::function<void()> ways[] = {
        [] { Click(*window(), button()); },
        [] { Press(*window(), Qt::Key_Escape); },
        [] { Press(*window(), Qt::Key_Return); },
        [] { window()->windowHandle()->close(); },
    };
    for (const auto& stop : ways) {
        Progress progress(&desk, {"", "Writing the list"}, kRows);
        EXPECT_TRUE(progress.Reached(1));
        stop();
        EXPECT_FALSE(progress.Reached(2));
        // The window stays until the work has ended.
        EXPECT_TRUE(window());
    }
}

TEST_F(ProgressTest, OtherKeysStopNothingAndGoNowhere)
{
    Progress progress(&desk, {"", "Writing the list"}, kRows);
    Type(*window(), "n");
    Press(*window(), Qt::Key_Tab);
    EXPECT_TRUE(progress.Reached(1));
    EXPECT_EQ(desk.A.Text(), QString());
}

} // namespace TradeForms
