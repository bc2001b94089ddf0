#include "Desk.h"

#include "controls/Look.h"

#include <QClipboard>
#include <QScreen>
#include <QTextEdit>
#include <QTimer>

#include <stdexcept>

namespace TradeForms {

namespace {

const Message kQuestion{s("Do you want to remove this record?"), MsgIcon::Question,
                        s("Confirmation"), MsgButtons::YesNo};
const Message kWarning{s("Enter Branch Code."), MsgIcon::Exclamation, s("Gate Pass")};

/// Shows the real box, lets the test drive it, and returns the answer.
MsgAnswer answered(const Message& message, const std::function<void(Form& box)>& drive)
{
    const RealModals real;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<Form*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        Activate(*box);
        drive(*box);
        EXPECT_FALSE(box->isVisible());
        box->hide();
    });
    return MsgBox(nullptr, message);
}

MsgAnswer answeredBy(const Message& message, Qt::Key key)
{
    return answered(
        message, [key](Form& box) { Press(box, key); });
}

} // namespace

TEST(MsgBoxTest, KeysAnswerAQuestion)
{
    EXPECT_EQ(answeredBy(kQuestion, Qt::Key_Y), MsgAnswer::Yes);
    EXPECT_EQ(answeredBy(kQuestion, Qt::Key_N), MsgAnswer::No);
    EXPECT_EQ(answeredBy(kQuestion, Qt::Key_Escape), MsgAnswer::No);
    EXPECT_EQ(answeredBy(kQuestion, Qt::Key_Return), MsgAnswer::Yes);
    EXPECT_EQ(answeredBy(kQuestion, Qt::Key_Enter), MsgAnswer::Yes);
    EXPECT_EQ(answeredBy(kQuestion, Qt::Key_Space), MsgAnswer::Yes);
}

TEST(MsgBoxTest, EnterAnswersNoWhereThatIsTheDefault)
{
    Message careful = kQuestion;
    careful.Default = MsgAnswer::No;
    EXPECT_EQ(answeredBy(careful, Qt::Key_Return), MsgAnswer::No);
    EXPECT_EQ(answeredBy(careful, Qt::Key_Y), MsgAnswer::Yes);
    EXPECT_EQ(answered(careful,
                       [](Form& box) {
                           Press(box, Qt::Key_Tab);
                           Press(box, Qt::Key_Return);
                       }),
              MsgAnswer::Yes);
}

TEST(MsgBoxTest, EnterAnswersTheButtonThatHasTheFocus)
{
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Left, Qt::Key_Right}) {
        EXPECT_EQ(answered(
                      kQuestion,
                      [key](Form& box) {
                          Press(box, key);
                          Press(box, Qt::Key_Return);
                      }),
                  MsgAnswer::No);
    }
}

TEST(MsgBoxTest, KeysAnswerAnOkBox)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space})
        EXPECT_EQ(answeredBy(kWarning, key), MsgAnswer::Ok);
    EXPECT_EQ(answered(kWarning,
                       [](Form& box) {
                           Press(box, Qt::Key_Y);
                           Press(box, Qt::Key_N);
                           EXPECT_TRUE(box.isVisible());
                           Press(box, Qt::Key_Return);
                       }),
              MsgAnswer::Ok);
}

TEST(MsgBoxTest, ClicksAnswer)
{
    const auto click = [](const char* name) {
        return [name](Form& box) {
            for (const Control* control : box.Controls())
                if (control->Name() == s(name))
                    Click(box, *control);
        };
    };
    EXPECT_EQ(answered(kQuestion, click("BtnYes")), MsgAnswer::Yes);
    EXPECT_EQ(answered(kQuestion, click("BtnNo")), MsgAnswer::No);
    EXPECT_EQ(answered(kQuestion, click("ImgExit")), MsgAnswer::No);
    EXPECT_EQ(answered(kWarning, click("BtnOk")), MsgAnswer::Ok);
}

TEST(MsgBoxTest, TellsTextAndTitleAsTheyStand)
{
    const Message message{s("یہ <b>گاہک</b> 'موجود' نہیں\n\"x\" & y"), MsgIcon::Stop,
                          s("Error <i>occured</i>")};
    answered(message, [&](Form& box) {
        EXPECT_EQ(box.windowTitle(), message.Title);
        EXPECT_EQ(box.accessibleName(), message.Title);
        EXPECT_EQ(box.accessibleDescription(), message.Text);
        EXPECT_EQ(box.findChild<QTextEdit*>()->toPlainText(), message.Text);
        QStringList shown;
        for (const QLabel* label : box.findChildren<QLabel*>())
            shown << label->text();
        EXPECT_TRUE(shown.contains(message.Title));
        Press(box, Qt::Key_Escape);
    });
}

TEST(MsgBoxTest, LongTextsWrapAndScroll)
{
    for (const QString& text : {QString(10'000, QLatin1Char('x')), s("لفظ ").repeated(2'500),
                                s("line\n").repeated(2'000)}) {
        answered(
            {text, MsgIcon::Information, s("Alert")},
            [&](Form& box) {
                const QSize screen = box.screen()->availableSize();
                EXPECT_LT(box.height(), screen.height());
                EXPECT_LT(box.width(), screen.width());
                auto* shown = box.findChild<QTextEdit*>();
                EXPECT_EQ(shown->toPlainText(), text);
                EXPECT_EQ(shown->horizontalScrollBar()->maximum(), 0);
                EXPECT_TRUE(shown->verticalScrollBar()->isVisible());
                Press(box, Qt::Key_Escape);
            });
    }
}

TEST(MsgBoxTest, ShortTextsNeedNoScrolling)
{
    for (const Message& message : {kQuestion, kWarning}) {
        answered(
            message,
            [&](Form& box) {
                EXPECT_EQ(box.findChild<QTextEdit*>()->verticalScrollBar()->maximum(), 0);
                Press(box, Qt::Key_Escape);
            });
    }
}

TEST(MsgBoxTest, TextIsCopied)
{
    answered(
        kWarning,
        [](Form& box) {
            Press(box, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QGuiApplication::clipboard()->text(), kWarning.Text);
            box.findChild<QTextEdit*>()->selectAll();
            Press(box, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QGuiApplication::clipboard()->text(), kWarning.Text);
            auto* shown = box.findChild<QTextEdit*>();
            QTextCursor word = shown->textCursor();
            word.setPosition(6);
            word.setPosition(12, QTextCursor::KeepAnchor);
            shown->setTextCursor(word);
            Press(box, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QGuiApplication::clipboard()->text(), s("Branch"));
            Press(box, Qt::Key_Escape);
        });
}

TEST(MsgBoxTest, EachIconHasASignOfItsOwn)
{
    const auto signOf = [](MsgIcon icon) {
        QImage sign;
        answered({s("text"), icon, s("Alert")}, [&sign](Form& box) {
            for (QWidget* widget : box.findChildren<QWidget*>())
                if (widget->size() == QSize(40, 40))
                    sign = widget->grab().toImage();
            Press(box, Qt::Key_Escape);
        });
        return sign;
    };
    const QImage stop = signOf(MsgIcon::Stop);
    // A cross on red.
    for (const QPoint& point : {QPoint(15, 15), QPoint(25, 15), QPoint(15, 25), QPoint(25, 25)})
        EXPECT_EQ(stop.pixelColor(point), QColor(Qt::white));
    EXPECT_GT(stop.pixelColor(6, 20).red(), 150);
    EXPECT_LT(stop.pixelColor(6, 20).green(), 60);
    // A triangle, whose upper corners are empty.
    const QImage exclamation = signOf(MsgIcon::Exclamation);
    EXPECT_EQ(exclamation.pixelColor(8, 8), exclamation.pixelColor(0, 0));
    EXPECT_NE(exclamation.pixelColor(8, 33), exclamation.pixelColor(0, 0));
    const QImage question = signOf(MsgIcon::Question);
    const QImage information = signOf(MsgIcon::Information);
    EXPECT_EQ(question.pixelColor(6, 20), Look::Accent());
    EXPECT_GT(information.pixelColor(6, 20).blue(), 150);
    EXPECT_TRUE(signOf(MsgIcon::None).isNull());
}

TEST(MsgBoxTest, BoxStandsOverItsOwnerAndGivesTheFocusBack)
{
    Desk desk;
    Activate(desk);
    desk.TakeLog();
    const RealModals real;
    QTimer::singleShot(0, &desk, [&] {
        auto* box = qobject_cast<Form*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        EXPECT_EQ(box->windowHandle()->transientParent(), desk.windowHandle());
        Press(*box, Qt::Key_Y);
    });
    EXPECT_TRUE(Ask(&desk, s("Sure?"), s("Alert")));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Activate(desk);
    EXPECT_TRUE(desk.A.hasFocus());
    EXPECT_EQ(desk.TakeLog(), QStringList{});
}

TEST(MsgBoxTest, ShortFormsSayTheSame)
{
    ExpectedBoxes boxes;
    boxes.Expect({s("text"), MsgIcon::Information, s("Alert")});
    Inform(nullptr, s("text"), MsgIcon::Information, s("Alert"));
    boxes.Expect({s("text"), MsgIcon::Question, s("Alert"), MsgButtons::YesNo}, MsgAnswer::Yes);
    EXPECT_TRUE(Ask(nullptr, s("text"), s("Alert")));
    boxes.Expect({s("text"), MsgIcon::Question, s("Alert"), MsgButtons::YesNo}, MsgAnswer::No);
    EXPECT_FALSE(Ask(nullptr, s("text"), s("Alert")));
    boxes.Expect({s("نام"), MsgIcon::Stop, s("Error occured")});
    ShowError(nullptr, std::runtime_error("نام"));
    EXPECT_EQ(boxes.Left(), 0);
}

} // namespace TradeForms
