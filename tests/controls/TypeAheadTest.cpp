#include "Desk.h"

#include "controls/ModalScope.h"

#include <QTimer>
#include <QWindow>
#include <QtTest>

namespace TradeForms {

namespace {

/// Sends a key to a window as the platform does when several are pending: no events are processed
/// in between.
void sendKey(QWidget& form, Qt::Key key, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(form.windowHandle(), &event);
    }
}

/// Sends a click in the same way.
void sendClick(QWidget& form, const QPoint& at)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, form.mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(form.windowHandle(), &event);
    }
}

} // namespace

TEST_F(DeskTest, AClickBehindTheAnswerOfABoxPressesNothing)
{
    const RealModals real;
    desk.Btn.OnClick += [this] { Ask(&desk, s("Sure?"), s("Alert")); };
    const QPoint field = desk.B.geometry().center();
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<Form*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        Activate(*box);
        sendKey(*box, Qt::Key_N, s("n"));
        sendClick(desk, field);
    });
    desk.Btn.Click();
    EXPECT_TRUE(IsActive(desk.A));
    // After that, clicks work as usual.
    Activate(desk);
    sendClick(desk, field);
    EXPECT_TRUE(IsActive(desk.B));
}

TEST_F(DeskTest, AKeyBehindTheAnswerOfABoxWaitsUntilTheAskingStepIsDone)
{
    const RealModals real;
    QString whenTheStepWentOn = s("(never)");
    desk.Btn.OnClick += [&] {
        Ask(&desk, s("Do you want to print this GatePass"), s("Alert"));
        whenTheStepWentOn = desk.A.Text();
    };
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<Form*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        Activate(*box);
        sendKey(*box, Qt::Key_N, s("n"));
        sendKey(desk, Qt::Key_4, s("4"));
        sendKey(desk, Qt::Key_2, s("2"));
    });
    desk.Btn.Click();
    EXPECT_EQ(whenTheStepWentOn, QString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return desk.A.Text() == s("42"); }))
        << qPrintable(desk.A.Text());
}

TEST_F(DeskTest, AKeyBehindTheAnswerGoesToTheNextQuestion)
{
    const RealModals real;
    bool first = true;
    bool second = false;
    desk.Btn.OnClick += [&] {
        first = Ask(&desk, s("First?"), s("Alert"));
        second = Ask(&desk, s("Second?"), s("Alert"));
    };
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<Form*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        Activate(*box);
        sendKey(*box, Qt::Key_N, s("n"));
        sendKey(desk, Qt::Key_Y, s("y"));
    });
    // If the key were lost, the second question would wait forever.
    QTimer giveUp;
    QObject::connect(&giveUp, &QTimer::timeout, &Modal::EndAll);
    giveUp.start(60'000);
    desk.Btn.Click();
    EXPECT_FALSE(first);
    EXPECT_TRUE(second);
    EXPECT_EQ(desk.A.Text(), QString());
}

} // namespace TradeForms
