#include "controls/MsgBox.h"

#include "controls/Form.h"
#include "controls/Look.h"
#include "controls/ModalScope.h"
#include "controls/Pieces.h"
#include "controls/TypeAhead.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QWindow>

#include <algorithm>
#include <memory>

namespace TradeForms {

namespace {

Modal::BoxPresenter boxPresenter;
Modal::FormPresenter formPresenter;
int shown = 0;

const int kNarrowest = 240; ///< width of the text, in pixels
const int kWidest = 560;

QWidget* windowOf(QWidget* widget)
{
    return widget ? widget->window() : nullptr;
}

/// The icon of a message box.
class Sign : public QWidget {
public:
    explicit Sign(MsgIcon icon) : icon_(icon) { setFixedSize(40, 40); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Ground());
        if (icon_ == MsgIcon::Exclamation)
            painter.drawPolygon(QPolygonF({{20, 3}, {38, 36}, {2, 36}}));
        else
            painter.drawEllipse(QRectF(2, 2, 36, 36));
        painter.setPen(QPen(Look::AccentText(), 4, Qt::SolidLine, Qt::RoundCap));
        if (icon_ == MsgIcon::Stop) {
            painter.drawLine(QPointF(14, 14), QPointF(26, 26));
            painter.drawLine(QPointF(14, 26), QPointF(26, 14));
            return;
        }
        QFont letter = Look::LatinFont();
        letter.setPixelSize(24);
        letter.setBold(true);
        painter.setFont(letter);
        const QRect room = icon_ == MsgIcon::Exclamation ? rect().adjusted(0, 6, 0, 2) : rect();
        painter.drawText(room, Qt::AlignCenter, Letter());
    }

private:
    QColor Ground() const
    {
        switch (icon_) {
        case MsgIcon::Stop:
            return Look::StopSign();
        case MsgIcon::Exclamation:
            return Look::WarningSign();
        case MsgIcon::Information:
            return Look::NoticeSign();
        default:
            return Look::Accent();
        }
    }

    QString Letter() const
    {
        switch (icon_) {
        case MsgIcon::Question:
            return QStringLiteral("?");
        case MsgIcon::Exclamation:
            return QStringLiteral("!");
        default:
            return QStringLiteral("i");
        }
    }

    MsgIcon icon_;
};

/// Plain text, never interpreted as markup. It can be selected with the mouse, and scrolls if it is
/// long.
class MessageText : public QTextEdit {
public:
    explicit MessageText(const QString& text)
    {
        Look::Dress(*this, Look::LatinFont());
        Look::Dress(*verticalScrollBar(), Look::LatinFont());
        viewport()->setAutoFillBackground(false);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
        setContextMenuPolicy(Qt::NoContextMenu);
        setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setAccessibleName(text);
        setPlainText(text);

        const std::unique_ptr<QTextDocument> measure(document()->clone());
        measure->setTextWidth(-1); // wraps only at the text's own line breaks
        const int width = std::clamp(int(measure->idealWidth()) + 1, kNarrowest, kWidest);
        measure->setTextWidth(width);
        const int height = int(measure->size().height()) + 1;
        const int tallest = QGuiApplication::primaryScreen()->availableSize().height() / 2;
        const bool scrolls = height > tallest;
        setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
        const int bar = scrolls ? verticalScrollBar()->sizeHint().width() : 0;
        setFixedSize(width + bar, std::min(height, tallest));
    }
};

class Box : public Form {
public:
    explicit Box(const Message& message)
        : message_(message),
          answer_(message.Buttons == MsgButtons::Ok ? MsgAnswer::Ok : MsgAnswer::No)
    {
        SetWindowCaption(message.Title);
        setAccessibleDescription(message.Text);

        auto* strip = new TitleStrip({}, message.Title);
        strip->ImgMin().SetVisible(false);
        strip->ImgExit().OnClick += [this] { Unload(); };

        auto* words = new QHBoxLayout;
        words->setContentsMargins(20, 20, 20, 20);
        words->setSpacing(16);
        // Messages are in English: icon on the left, text to the right of it.
        words->setDirection(QBoxLayout::RightToLeft);
        if (message.Icon != MsgIcon::None)
            words->addWidget(new Sign(message.Icon), 0, Qt::AlignTop);
        text_ = new MessageText(message.Text);
        words->addWidget(text_, 1, Qt::AlignVCenter);

        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(1, 1, 1, 1);
        column->setSpacing(0);
        column->addWidget(strip);
        column->addLayout(words);
        const QList<JeweledButton*> buttons = Buttons();
        column->addWidget(ButtonBar(buttons, {}));
        // The first control of the tab order gets the focus when the box is shown.
        if (message.Default == MsgAnswer::No && buttons.size() == 2)
            SetTabOrderOf({buttons.last(), buttons.first()});
    }

    MsgAnswer Answer() const { return answer_; }

protected:
    void FormKeyDown(KeyPress& key) override
    {
        const bool yesNo = message_.Buttons == MsgButtons::YesNo;
        switch (key.Code) {
        case Qt::Key_Escape:
            Unload();
            break;
        case Qt::Key_Return:
            PressActive();
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
            FocusNext();
            break;
        case Qt::Key_Y:
            if (yesNo)
                Choose(MsgAnswer::Yes);
            break;
        case Qt::Key_N:
            if (yesNo)
                Choose(MsgAnswer::No);
            break;
        case Qt::Key_C:
            if (key.IsCtrl(Qt::Key_C))
                CopyText();
            break;
        default:
            return;
        }
        key.Swallow();
    }

private:
    QList<JeweledButton*> Buttons()
    {
        if (message_.Buttons == MsgButtons::Ok)
            return {Button(MsgAnswer::Ok, "BtnOk", {"ٹھیک ہے", "OK"}, "Enter")};
        return {Button(MsgAnswer::Yes, "BtnYes", {"جی ہاں", "Yes"}, "Y"),
                Button(MsgAnswer::No, "BtnNo", {"نہیں", "No"}, "N")};
    }

    JeweledButton* Button(MsgAnswer answer, const char* name, const Caption& caption,
                          const char* shortcut)
    {
        const bool isDefault = answer == MsgAnswer::Ok || answer == message_.Default;
        JeweledButton& button =
            BarButton(this, name, caption, shortcut,
                      isDefault ? JeweledButton::Kind::Primary : JeweledButton::Kind::Plain);
        button.OnClick += [this, answer] { Choose(answer); };
        return &button;
    }

    void Choose(MsgAnswer answer)
    {
        answer_ = answer;
        Unload();
    }

    void PressActive()
    {
        if (auto* button = dynamic_cast<JeweledButton*>(ActiveControl()))
            button->Click();
    }

    void CopyText()
    {
        const QString selected = text_->textCursor().selection().toPlainText();
        QGuiApplication::clipboard()->setText(selected.isEmpty() ? message_.Text : selected);
    }

    Message message_;
    MsgAnswer answer_;
    MessageText* text_;
};

} // namespace

MsgAnswer MsgBox(QWidget* owner, const Message& message)
{
    ++shown;
    if (boxPresenter)
        return boxPresenter(owner, message);
    Box box(message);
    Modal::Run(box, owner);
    return box.Answer();
}

void Inform(QWidget* owner, const QString& text, MsgIcon icon, const QString& title)
{
    MsgBox(owner, {text, icon, title});
}

bool Ask(QWidget* owner, const QString& text, const QString& title)
{
    return MsgBox(owner, {text, MsgIcon::Question, title, MsgButtons::YesNo}) == MsgAnswer::Yes;
}

void ShowError(QWidget* owner, const std::exception& failure)
{
    Inform(owner, QString::fromUtf8(failure.what()), MsgIcon::Stop,
           QStringLiteral("Error occured"));
}

namespace Modal {

BoxPresenter SetBoxPresenter(BoxPresenter presenter)
{
    return std::exchange(boxPresenter, std::move(presenter));
}

FormPresenter SetFormPresenter(FormPresenter presenter)
{
    return std::exchange(formPresenter, std::move(presenter));
}

void Run(Form& form, QWidget* owner)
{
    const QPointer<Form> alive(&form);
    const QPointer<QWidget> over(windowOf(owner));
    QEventLoop loop;
    TypeAhead typeAhead;
    Scope scope;
    QObject::connect(&form, &Form::Unloading, &loop, [&scope] { scope.End(); });
    QObject::connect(&form, &Form::Unloaded, &typeAhead, &TypeAhead::Hold);
    QObject::connect(&form, &Form::Unloaded, &loop, &QEventLoop::quit);
    QObject::connect(&form, &QObject::destroyed, &loop, &QEventLoop::quit);

    form.setWindowModality(Qt::ApplicationModal);
    form.winId(); // creates the native window, needed for setTransientParent
    form.windowHandle()->setTransientParent(over ? over->windowHandle() : nullptr);
    form.ShowOver(over);
    scope.Wait(loop);

    scope.End();
    if (alive)
        alive->hide(); // the loop may have ended because the application is quitting
    if (over && over->isVisible())
        over->activateWindow();
    typeAhead.Release();
}

void Present(Form& form, QWidget* owner)
{
    ++shown;
    if (formPresenter)
        formPresenter(form, owner);
    else
        Run(form, owner);
}

int Count()
{
    return shown;
}

} // namespace Modal

} // namespace TradeForms
