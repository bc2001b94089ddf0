#include "controls/Pieces.h"

#include "controls/Look.h"
#include "controls/Utf8.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace TradeForms {

namespace {

QLabel* plainLabel(const QString& text, const QFont& font, const QColor& color)
{
    auto* label = new QLabel(text);
    Look::Dress(*label, font);
    QPalette palette = Look::Palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
    label->setTextFormat(Qt::PlainText);
    // The size hint is truncated to whole pixels, which would cut off the text.
    label->setMinimumWidth(label->sizeHint().width() + 1);
    // Hidden only, never shown explicitly: without a parent, show() would make it a top-level
    // window for a moment.
    if (text.isEmpty())
        label->hide();
    return label;
}

/// The status label of a title strip: text on a lighter background with rounded ends.
class Pill : public QLabel {
public:
    Pill()
    {
        Look::Dress(*this, Look::LatinFont());
        QFont small = Look::LatinFont();
        small.setPixelSize(12);
        setFont(small);
        QPalette light = Look::Palette();
        light.setColor(QPalette::WindowText, Look::AccentText());
        setPalette(light);
        setTextFormat(Qt::PlainText);
        setContentsMargins(12, 0, 12, 0);
        // Only a minimum: the Urdu text may use a font with taller lines.
        setMinimumHeight(QFontMetrics(small).height() + 8);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        {
            QPainter painter(this);
            painter.setRenderHint(QPainter::Antialiasing);
            QColor ground = Look::AccentText();
            ground.setAlphaF(0.22F);
            painter.setPen(Qt::NoPen);
            painter.setBrush(ground);
            painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
        }
        QLabel::paintEvent(event);
    }
};

} // namespace

Txt& TextField(QWidget* form, const char* name, const char* accessibleName, bool mandatory)
{
    auto& txt = *new Txt(utf8(name), utf8(accessibleName), form);
    txt.SetMandatory(mandatory);
    return txt;
}

Txt& NumberField(QWidget* form, const char* name, const char* accessibleName)
{
    auto& txt = *new Txt(utf8(name), utf8(accessibleName), form);
    txt.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
    txt.SetNumberExpected(true);
    return txt;
}

UTxt& UrduField(QWidget* form, const char* name, const char* accessibleName)
{
    return *new UTxt(utf8(name), utf8(accessibleName), form);
}

DTPicker& DateField(QWidget* form, const char* name, const char* accessibleName)
{
    return *new DTPicker(utf8(name), utf8(accessibleName), form);
}

DTPicker& MonthField(QWidget* form, const char* name, const char* accessibleName)
{
    DTPicker& month = DateField(form, name, accessibleName);
    month.SetCustomFormat(QStringLiteral("MMM-yyyy"));
    month.SetFirstOfMonth(true);
    return month;
}

OptionButton& OptionField(QWidget* form, const char* name, const char* accessibleName)
{
    return *new OptionButton(utf8(name), utf8(accessibleName), form);
}

JeweledButton& BarButton(QWidget* form, const char* name, const Caption& caption,
                         const char* shortcut, JeweledButton::Kind kind)
{
    return *new JeweledButton(utf8(name), utf8(caption.Urdu), utf8(caption.English), utf8(shortcut),
                              kind, form);
}

CodeField MakeCodeField(QWidget* form, const ControlName& code, const ControlName& button,
                        const ControlName& name, bool mandatory)
{
    auto& list = *new JeweledButton(utf8(button.Name), QStringLiteral("..."), QString(), QString(),
                                    JeweledButton::Kind::Small, form);
    list.SetName(utf8(button.Name), utf8(button.Accessible));
    return {TextField(form, code.Name, code.Accessible, mandatory), list,
            UrduField(form, name.Name, name.Accessible)};
}

Label& TextLabel(QWidget* form, const char* name, const char* text)
{
    return *new Label(utf8(name), utf8(text), form);
}

TitleStrip::TitleStrip(const Caption& title, QWidget* parent)
    : TitleStrip(utf8(title.Urdu), utf8(title.English), parent)
{
}

TitleStrip::TitleStrip(const QString& urdu, const QString& english, QWidget* parent)
    : QWidget(parent), imgExit_(new Image(QStringLiteral("ImgExit"), Image::Kind::Exit)),
      imgMin_(new Image(QStringLiteral("ImgMin"), Image::Kind::Minimize)), pill_(new Pill)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(14, 4, 14, 4);
    row->setSpacing(10);
    row->addWidget(plainLabel(urdu, Look::TitleUrdu(), Look::AccentText()));
    row->addWidget(plainLabel(english, Look::TitleLatin(), Look::AccentText()));
    row->addStretch(1);
    row->addWidget(pill_);
    row->addWidget(imgMin_);
    row->addWidget(imgExit_);
    SetState(QString());
}

void TitleStrip::SetState(const QString& text)
{
    pill_->setText(text);
    pill_->setVisible(!text.isEmpty());
}

void TitleStrip::SetState(const Caption& state)
{
    SetState(QStringLiteral("%1 · %2").arg(utf8(state.Urdu), utf8(state.English)));
}

QString TitleStrip::StateText() const
{
    return pill_->text();
}

void TitleStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient slope(0, 0, 0, height());
    slope.setColorAt(0, Look::Accent().lighter(118));
    slope.setColorAt(1, Look::Accent());
    painter.fillRect(rect(), slope);
}

CaptionLabel::CaptionLabel(const Caption& caption, QWidget* parent)
    : CaptionLabel(utf8(caption.Urdu), utf8(caption.English), parent)
{
}

CaptionLabel::CaptionLabel(const QString& urdu, const QString& english, QWidget* parent,
                           Qt::Alignment alignment)
    : QWidget(parent), urdu_(new Label({}, urdu)), english_(new Label({}, english))
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    urdu_->setFont(Look::CaptionUrdu());
    english_->setFont(Look::CaptionLatin());
    english_->SetForeColor(Look::MutedText());
    // In a right-to-left form, QLabel would align an English text to the opposite side.
    const Qt::Alignment side = QStyle::visualAlignment(Qt::RightToLeft, alignment);
    for (Label* label : {urdu_, english_})
        label->setAlignment(side | Qt::AlignAbsolute | Qt::AlignVCenter);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(urdu_);
    lines->addWidget(english_);
}

GridColumn CodeColumn(const char* name, const Caption& caption, int width)
{
    return {.Name = utf8(name), .Caption = caption, .Width = width};
}

GridColumn NumberColumn(const char* name, const Caption& caption, int width)
{
    GridColumn column = CodeColumn(name, caption, width);
    column.Number = true;
    return column;
}

GridColumn NameColumn(const char* name, const Caption& caption, int width)
{
    GridColumn column = CodeColumn(name, caption, width);
    column.Style = StyleSet::ColUrdu;
    column.Stretch = true;
    return column;
}

namespace {

/// Creates a widget and its row layout; widgets are added from right to left.
std::pair<QWidget*, QHBoxLayout*> makeRow(int spacing)
{
    auto* part = new QWidget;
    auto* row = new QHBoxLayout(part);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return {part, row};
}

CaptionLabel* captionBeside(const Caption& caption)
{
    auto* label = new CaptionLabel(caption);
    label->setMinimumWidth(kCaptionWidth);
    return label;
}

const int kBesideSpacing = 6;

void addCode(QHBoxLayout& row, const CodeField& field)
{
    field.Code.setFixedWidth(kCodeWidth);
    row.addWidget(&field.Code);
    row.addWidget(&field.Button);
    row.addWidget(&field.Name, 1);
}

} // namespace

QWidget* CodeSet(const CodeField& field)
{
    const auto [part, row] = makeRow(kBesideSpacing);
    addCode(*row, field);
    return part;
}

QWidget* CodeSet(const Caption& caption, const CodeField& field)
{
    const auto [part, row] = makeRow(kBesideSpacing);
    row->addWidget(captionBeside(caption));
    addCode(*row, field);
    return part;
}

QWidget* CodeSet(const Caption& caption, Txt& code)
{
    const auto [part, row] = makeRow(kBesideSpacing);
    row->addWidget(captionBeside(caption));
    code.setFixedWidth(kCodeWidth);
    row->addWidget(&code);
    row->addStretch(1);
    return part;
}

QWidget* Labelled(const Caption& caption, QWidget* field)
{
    const auto [part, row] = makeRow(kBesideSpacing);
    row->addWidget(captionBeside(caption));
    row->addWidget(field, 1);
    return part;
}

QWidget* AtOwnWidth(QWidget* field)
{
    return SideBySide({field});
}

QWidget* SideBySide(const QList<QWidget*>& fields)
{
    const auto [part, row] = makeRow(Look::Space());
    for (QWidget* field : fields)
        if (field)
            row->addWidget(field);
        else
            row->addSpacing(Look::Space());
    row->addStretch(1);
    return part;
}

QWidget* Stacked(const Caption& caption, QWidget* field)
{
    return Stacked(new CaptionLabel(caption), field);
}

QWidget* Stacked(CaptionLabel* caption, QWidget* field)
{
    auto* part = new QWidget;
    auto* lines = new QVBoxLayout(part);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(2);
    lines->addWidget(caption);
    lines->addWidget(field);
    return part;
}

QWidget* GridArea(Grid& grid)
{
    auto* part = new QWidget;
    part->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    auto* room = new QHBoxLayout(part);
    room->setContentsMargins(2 * Look::Space(), Look::Space(), 2 * Look::Space(), Look::Space());
    room->addWidget(&grid);
    return part;
}

namespace {

void addInOrder(const QLayout& layout, QList<Control*>& controls);

void addInOrder(QWidget& widget, QList<Control*>& controls)
{
    auto* control = dynamic_cast<Control*>(&widget);
    if (control && control->TakesFocus())
        controls.append(control);
    else if (const QLayout* inner = widget.layout())
        addInOrder(*inner, controls);
}

void addInOrder(const QLayout& layout, QList<Control*>& controls)
{
    for (int at = 0; at < layout.count(); ++at) {
        const QLayoutItem* item = layout.itemAt(at);
        if (QWidget* widget = item->widget())
            addInOrder(*widget, controls);
        else if (const QLayout* inner = const_cast<QLayoutItem*>(item)->layout())
            addInOrder(*inner, controls);
    }
}

} // namespace

QList<Control*> InLayoutOrder(const QWidget& part)
{
    QList<Control*> controls;
    if (const QLayout* layout = part.layout())
        addInOrder(*layout, controls);
    return controls;
}

Strip::Strip(Kind kind, QWidget* parent) : QWidget(parent), kind_(kind)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Strip::paintEvent(QPaintEvent*)
{
    if (kind_ == Kind::Plain)
        return;
    QPainter painter(this);
    const bool entry = kind_ == Kind::Entry;
    painter.fillRect(rect(), entry ? Look::EntryBackground() : Look::BarBackground());
    painter.setPen(entry ? Look::Selection().darker(110) : Look::Border());
    painter.drawLine(rect().topLeft(), rect().topRight());
    if (entry)
        painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

Strip* HeaderStrip(const QList<QWidget*>& cells)
{
    auto* strip = new Strip(Strip::Kind::Plain);
    auto* grid = new QGridLayout(strip);
    grid->setContentsMargins(2 * Look::Space(), Look::Space(), 2 * Look::Space(), Look::Space());
    grid->setHorizontalSpacing(3 * Look::Space());
    grid->setVerticalSpacing(Look::Space());
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    for (qsizetype i = 0; i < cells.size(); ++i)
        grid->addWidget(cells[i], int(i / 2), int(i % 2));
    return strip;
}

Strip* EntryStrip(QWidget* code, const QList<QWidget*>& fields)
{
    auto* strip = new Strip(Strip::Kind::Entry);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(2 * Look::Space(), Look::Space(), 2 * Look::Space(), Look::Space());
    row->setSpacing(Look::Space());
    row->addWidget(code, 1);
    for (QWidget* field : fields)
        row->addWidget(field);
    return strip;
}

Strip* ButtonBar(const QList<JeweledButton*>& right, const QList<JeweledButton*>& left)
{
    auto* bar = new Strip(Strip::Kind::Bar);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(18, 10, 18, 10);
    row->setSpacing(Look::Space());
    for (JeweledButton* button : right)
        row->addWidget(button);
    row->addStretch(1);
    for (JeweledButton* button : left)
        row->addWidget(button);
    return bar;
}

} // namespace TradeForms
