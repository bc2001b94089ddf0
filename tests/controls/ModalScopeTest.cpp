#include "controls/ModalScope.h"

#include "Desk.h"

#include "controls/Progress.h"

#include <QTimer>

namespace TradeForms {

namespace {

/// Records when the barrier was created and removed.
class ModalScopeTest : public ::testing::Test {
protected:
    ModalScopeTest()
    {
        previous_ = Modal::SetBarrier([this] {
            ++closed_;
            log_ << s("closed");
            return std::shared_ptr<void>(
                this,
                [this](void*) {
                    --closed_;
                    log_ << (modalIsUp() ? s("opened before it goes")
                                         : s("opened when it has gone"));
                });
        });
    }
    ~ModalScopeTest() override
    {
        Modal::SetBarrier(previous_);
        EXPECT_EQ(closed_, 0);
        EXPECT_EQ(Modal::Scope::Open(), 0);
    }

    static bool modalIsUp() { return QApplication::activeModalWidget() != nullptr; }
    static Form* box() { return qobject_cast<Form*>(QApplication::activeModalWidget()); }

    /// Runs a function as soon as the next modal window is shown.
    template <class Then> void whenUp(Then then) { QTimer::singleShot(0, qApp, then); }

    const RealModals real_;
    Modal::Barrier previous_;
    int closed_ = 0;
    QStringList log_;
};

/// A window that refuses to close the first time.
class Stubborn : public Form {
public:
    Stubborn() { resize(100, 100); }
    int Asked = 0;

protected:
    void QueryUnload(bool& cancel) override { cancel = ++Asked == 1; }
};

} // namespace

TEST_F(ModalScopeTest, ABoxClosesWhatStandsAroundItAndOpensItBeforeItGoes)
{
    whenUp([this] {
        ASSERT_TRUE(box());
        EXPECT_EQ(closed_, 1);
        EXPECT_EQ(Modal::Scope::Open(), 1);
        Press(*box(), Qt::Key_Y);
    });
    EXPECT_TRUE(Ask(nullptr, s("Sure?"), s("Alert")));
    EXPECT_EQ(log_, (QStringList{s("closed"), s("opened before it goes")}));
}

TEST_F(ModalScopeTest, AWindowThatStaysKeepsItClosed)
{
    Stubborn window;
    whenUp([&] {
        EXPECT_FALSE(window.Unload());
        EXPECT_EQ(closed_, 1);
        EXPECT_TRUE(window.Unload());
        EXPECT_EQ(closed_, 0);
    });
    window.ShowModal(nullptr);
    EXPECT_EQ(window.Asked, 2);
}

TEST_F(ModalScopeTest, EachWindowOfSeveralOpensWhatItHasClosed)
{
    whenUp([this] {
        whenUp([this] {
            EXPECT_EQ(closed_, 2);
            Press(*box(), Qt::Key_Y);
        });
        EXPECT_TRUE(Ask(nullptr, s("Really?"), s("Alert")));
        EXPECT_EQ(closed_, 1);
        Press(*box(), Qt::Key_N);
    });
    EXPECT_FALSE(Ask(nullptr, s("Sure?"), s("Alert")));
}

TEST_F(ModalScopeTest, LongWorkClosesItToo)
{
    {
        Progress progress(nullptr, {"", "Work"}, Progress::LongWork);
        EXPECT_EQ(closed_, 1);
    }
    EXPECT_EQ(log_, (QStringList{s("closed"), s("opened before it goes")}));
    const Progress brief(nullptr, {"", "Work"}, Progress::LongWork - 1);
    EXPECT_EQ(closed_, 0);
}

TEST_F(ModalScopeTest, AllEndAtOnceWhenTheHostEnds)
{
    Stubborn window;
    whenUp([this] {
        whenUp([] { Modal::EndAll(); });
        EXPECT_FALSE(Ask(&*box(), s("Sure?"), s("Alert")));
    });
    window.ShowModal(nullptr);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.Asked, 0);

    // Modal windows shown later wait for their answers as usual.
    whenUp([this] { Press(*box(), Qt::Key_Y); });
    EXPECT_TRUE(Ask(nullptr, s("Sure?"), s("Alert")));
}

} // namespace TradeForms
