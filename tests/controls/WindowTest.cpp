#include "Desk.h"

namespace TradeForms {

using FormWindowTest = DeskTest;

namespace {

/// A dialog with one field and a button that closes it.
class Question : public Form {
public:
    Question() : Field(*new Txt(s("TxtField"))), Done(*new JeweledButton(s("BtnDone")))
    {
        SetWindowCaption(s("Question"));
        auto* column = new QVBoxLayout(this);
        column->addWidget(&Field);
        column->addWidget(&Done);
        Done.OnClick += [this] { Unload(); };
    }

    Txt& Field;
    JeweledButton& Done;
};

void drag(Form& form, const QPoint& from, const QPoint& by, Qt::MouseButton button)
{
    Activate(form);
    QTest::mousePress(form.windowHandle(), button, Qt::NoModifier, from);
    QTest::mouseMove(form.windowHandle(), from + by);
    QTest::mouseRelease(form.windowHandle(), button, Qt::NoModifier, from);
}

} // namespace

TEST_F(FormWindowTest, IsBorderlessAndTellsItsName)
{
    EXPECT_TRUE(desk.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(desk.windowTitle(), s("Desk"));
    EXPECT_EQ(desk.layoutDirection(), Qt::RightToLeft);
}

TEST_F(FormWindowTest, IsDraggedByBackgroundAndLabelWithTheLeftButton)
{
    const QPoint by(30, 20);
    for (const QPoint& grip : {QPoint(10, 10), desk.Words.geometry().center()}) {
        const QPoint before = desk.pos();
        drag(desk, grip, by, Qt::LeftButton);
        EXPECT_EQ(desk.pos(), before + by);
    }
}

TEST_F(FormWindowTest, IsNotDraggedByFieldsNorByTheRightButton)
{
    desk.B.SetEnabled(false);
    const QPoint before = desk.pos();
    drag(desk, desk.A.geometry().center(), {30, 20}, Qt::LeftButton);
    drag(desk, desk.B.geometry().center(), {30, 20}, Qt::LeftButton);
    drag(desk, {10, 10}, {30, 20}, Qt::RightButton);
    EXPECT_EQ(desk.pos(), before);
}

TEST_F(FormWindowTest, AnotherWindowAndBackRunsNoHandler)
{
    Desk other;
    Activate(other);
    EXPECT_FALSE(desk.A.hasFocus());
    EXPECT_TRUE(IsActive(desk.A));
    Activate(desk);
    EXPECT_TRUE(desk.A.hasFocus());
    EXPECT_EQ(desk.TakeLog(), QStringList{});
}

TEST_F(FormWindowTest, ModalDialogWithinValidateRunsNoHandlerAndGivesTheFocusBack)
{
    Question question;
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [&](bool& cancel) {
        question.ShowModal(&desk);
        cancel = true;
    };
    dialogs.Expect([&](Form& dialog) {
        EXPECT_FALSE(desk.A.hasFocus());
        Type(dialog, "12");
        Click(dialog, question.Done);
    });
    Press(desk, Qt::Key_Tab);
    EXPECT_EQ(question.Field.Text(), s("12"));
    Activate(desk);
    EXPECT_TRUE(desk.A.hasFocus());
    EXPECT_EQ(desk.TakeLog(), QStringList{});
    Type(desk, "3");
    EXPECT_EQ(desk.A.Text(), s("3"));
}

TEST_F(FormWindowTest, TabGoesOnAfterAModalDialogWithinValidate)
{
    Question question;
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [&](bool&) { question.ShowModal(&desk); };
    dialogs.Expect([](Form& dialog) { dialog.Unload(); });
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.B));
    Activate(desk);
    EXPECT_TRUE(desk.B.hasFocus());
}

TEST_F(FormWindowTest, ClickIsOverWhereADialogCameUpOnTheWay)
{
    Question question;
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [&](bool&) { question.ShowModal(&desk); };
    dialogs.Expect([](Form& dialog) { dialog.Unload(); });
    Click(desk, desk.Btn);
    EXPECT_TRUE(IsActive(desk.Btn));
    EXPECT_EQ(desk.TakeLog().filter(s("Click")), QStringList{});
    EXPECT_FALSE(desk.Btn.isDown());
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog(), QStringList{s("BtnB.Click")});
}

TEST_F(FormWindowTest, ClickIsOverWhereABoxCameUpInLostFocus)
{
    const Message duplicate{s("The Record Already Exist"), MsgIcon::Information, s("Alert")};
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += [&] { MsgBox(&desk, duplicate); };
    boxes.Expect(duplicate);
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog().filter(s("Click")), QStringList{});
}

TEST_F(FormWindowTest, RealModalDialogBlocksItsOwnerUntilItIsClosed)
{
    const RealModals real;
    Question question;
    QTimer::singleShot(0, &question, [&] {
        EXPECT_EQ(question.windowHandle()->transientParent(), desk.windowHandle());
        QTest::keyClick(desk.windowHandle(), Qt::Key_9);
        Type(question, "5");
        Click(question, question.Done);
    });
    question.ShowModal(&desk);
    EXPECT_FALSE(question.isVisible());
    EXPECT_EQ(question.Field.Text(), s("5"));
    EXPECT_EQ(desk.A.Text(), QString());
    Activate(desk);
}

TEST_F(FormWindowTest, ModalDialogCanBeShownAgain)
{
    Question question;
    for (int i = 0; i < 2; ++i) {
        dialogs.Expect([&](Form& dialog) {
            EXPECT_TRUE(question.Field.hasFocus());
            Press(dialog, Qt::Key_Tab);
            Press(dialog, Qt::Key_Space);
        });
        question.ShowModal(&desk);
        EXPECT_FALSE(question.isVisible());
    }
}

TEST_F(FormWindowTest, ADialogComesUpInTheMiddleOfItsOwnerButOnTheScreen)
{
    const auto placeOver = [this](const QPoint& corner) {
        desk.move(corner);
        Question question;
        QRect place;
        dialogs.Expect([&place](Form& dialog) {
            place = dialog.geometry();
            dialog.Unload();
        });
        question.ShowModal(&desk);
        return place;
    };
    const QRect middle = placeOver({150, 100});
    EXPECT_LE((middle.center() - desk.geometry().center()).manhattanLength(), 2);

    const QRect screen = desk.screen()->availableGeometry();
    EXPECT_EQ(placeOver({-380, 100}).left(), screen.left());
    EXPECT_EQ(placeOver({150, -580}).top(), screen.top());
    EXPECT_TRUE(screen.contains(placeOver({screen.width() - 20, screen.height() - 20})));
}

TEST_F(FormWindowTest, UnloadAsksFirst)
{
    desk.onQueryUnload = [](bool& cancel) { cancel = true; };
    EXPECT_FALSE(desk.Unload());
    EXPECT_TRUE(desk.isVisible());
    desk.onQueryUnload = nullptr;
    EXPECT_TRUE(desk.Unload());
    EXPECT_FALSE(desk.isVisible());
}

TEST_F(FormWindowTest, ClosingBySystemAsksToo)
{
    int asked = 0;
    desk.onQueryUnload = [&](bool&) { ++asked; };
    desk.windowHandle()->close();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(desk.isVisible());
}

TEST_F(FormWindowTest, SecondCloseWhileAskingIsIgnored)
{
    int asked = 0;
    desk.onQueryUnload = [&](bool& cancel) {
        ++asked;
        EXPECT_FALSE(desk.Unload());
        cancel = true;
    };
    EXPECT_FALSE(desk.Unload());
    EXPECT_EQ(asked, 1);
}

TEST_F(FormWindowTest, FormClosedInLostFocusGetsNoFurtherHandler)
{
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += [this] { desk.Unload(); };
    Click(desk, desk.Btn);
    EXPECT_FALSE(desk.isVisible());
    EXPECT_EQ(desk.TakeLog(), QStringList{s("TxtA.Validate(TxtA)")});
}

TEST(FormLifetime, DeletesItselfAfterTheHandlerThatClosedIt)
{
    const QPointer<Desk> desk = new Desk;
    desk->ShowModeless();
    Activate(*desk);
    bool aliveAfterwards = false;
    desk->Btn.OnClick += [&] {
        desk->Unload();
        // The form must not be deleted by event loops that its handler runs.
        for (int turn = 0; turn < 3; ++turn) {
            QEventLoop loop;
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
            loop.exec();
        }
        aliveAfterwards = !desk.isNull();
    };
    QTest::mouseClick(desk->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      desk->Btn.geometry().center());
    EXPECT_TRUE(aliveAfterwards);
    EXPECT_TRUE(QTest::qWaitFor([&] { return desk.isNull(); }));
}

TEST(FormLifetime, StaysWhereNotAskedToGo)
{
    Desk desk;
    desk.ShowModeless(false);
    desk.Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    desk.ShowModeless(false);
    EXPECT_TRUE(desk.isVisible());
}

TEST(FormLifetime, ControlThatHasTheFocusMayBeDeleted)
{
    Desk desk;
    Activate(desk);
    delete &desk.A;
    EXPECT_EQ(desk.ActiveControl(), nullptr);
    EXPECT_TRUE(desk.SetFocus(desk.B));
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(desk.IsActive(desk.C));
}

TEST_F(FormWindowTest, MinimisesAndComesBack)
{
    desk.Minimize();
    EXPECT_TRUE(desk.isMinimized());
    desk.ShowModeless(false);
    EXPECT_FALSE(desk.isMinimized());
    EXPECT_TRUE(IsActive(desk.A));
}

} // namespace TradeForms
