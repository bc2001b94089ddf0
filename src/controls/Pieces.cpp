#include "controls/Pieces.h"

#include "controls/Look.h"

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
    // The hint is cut to whole pixels, and the text with it.
    label->setMinimumWidth(label->sizeHint().width() + 1);
    // Shown with the strip; shown by itself it would be a window for a moment.
    if (text.isEmpty())
        label->hide();
    return label;
}

/// The pill of a title strip: its text on a lighter ground with round ends.
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
        // A lower bound only: the Urdu of the text may be in a font with taller lines.
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

Txt& CodeField(QWidget* form, const char* name, const char* accessibleName, bool mandatory)
{
    auto& txt = *new Txt(QString::fromUtf8(name), QString::fromUtf8(accessibleName), form);
    txt.SetMandatory(mandatory);
    return txt;
}

Txt& NumberField(QWidget* form, const char* name, const char* accessibleName)
{
    auto& txt = *new Txt(QString::fromUtf8(name), QString::fromUtf8(accessibleName), form);
    txt.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
    txt.SetNumberExpected(true);
    return txt;
}

UTxt& UrduField(QWidget* form, const char* name, const char* accessibleName)
{
    return *new UTxt(QString::fromUtf8(name), QString::fromUtf8(accessibleName), form);
}

JeweledButton& ListButton(QWidget* form, const char* name, const char* accessibleName)
{
    const QString itsName = QString::fromUtf8(name);
    auto& button = *new JeweledButton(itsName, QStringLiteral("..."), QString(), QString(),
                                      JeweledButton::Kind::Small, form);
    button.SetName(itsName, QString::fromUtf8(accessibleName));
    return button;
}

OptionButton& OptionField(QWidget* form, const char* name, const char* accessibleName)
{
    return *new OptionButton(QString::fromUtf8(name), QString::fromUtf8(accessibleName), form);
}

Label& TextLabel(QWidget* form, const char* name, const char* text)
{
    return *new Label(QString::fromUtf8(name), QString::fromUtf8(text), form);
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
    SetState({}, {});
}

void TitleStrip::SetState(const QString& urdu, const QString& english)
{
    pill_->setText(urdu.isEmpty() || english.isEmpty() ? urdu + english
                                                       : urdu + QStringLiteral(" · ") + english);
    pill_->setVisible(!pill_->text().isEmpty());
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

CaptionLabel::CaptionLabel(const QString& urdu, const QString& english, QWidget* parent,
                           Qt::Alignment alignment)
    : QWidget(parent), urdu_(new Label({}, urdu)), english_(new Label({}, english))
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    urdu_->setFont(Look::CaptionUrdu());
    english_->setFont(Look::CaptionLatin());
    english_->SetForeColor(Look::MutedText());
    // A label would put an English text at the other end of a form that runs right to left.
    const Qt::Alignment side = QStyle::visualAlignment(Qt::RightToLeft, alignment);
    for (Label* label : {urdu_, english_})
        label->setAlignment(side | Qt::AlignAbsolute | Qt::AlignVCenter);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(urdu_);
    lines->addWidget(english_);
}

CaptionLabel* MakeCaption(const char* urdu, const char* english)
{
    return new CaptionLabel(QString::fromUtf8(urdu), QString::fromUtf8(english));
}

GridColumn CodeColumn(const char* name, const char* urdu, const char* english, int width)
{
    return {.Name = QString::fromUtf8(name),
            .Urdu = QString::fromUtf8(urdu),
            .English = QString::fromUtf8(english),
            .Width = width};
}

GridColumn NumberColumn(const char* name, const char* urdu, const char* english, int width)
{
    GridColumn column = CodeColumn(name, urdu, english, width);
    column.Number = true;
    return column;
}

GridColumn NameColumn(const char* name, const char* urdu, const char* english, int width)
{
    GridColumn column = CodeColumn(name, urdu, english, width);
    column.Style = StyleSet::ColUrdu;
    column.Stretch = true;
    return column;
}

QWidget* CodeSet(CaptionLabel* caption, Txt* code, JeweledButton* button, UTxt* name)
{
    auto* set = new QWidget;
    auto* row = new QHBoxLayout(set);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    if (caption) {
        caption->setMinimumWidth(kCaptionWidth);
        row->addWidget(caption);
    }
    code->setFixedWidth(kCodeWidth);
    row->addWidget(code);
    if (button)
        row->addWidget(button);
    if (name)
        row->addWidget(name, 1);
    else
        row->addStretch(1);
    return set;
}

QWidget* Labelled(CaptionLabel* caption, QWidget* field)
{
    auto* set = new QWidget;
    auto* row = new QHBoxLayout(set);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    caption->setMinimumWidth(kCaptionWidth);
    row->addWidget(caption);
    row->addWidget(field, 1);
    return set;
}

QWidget* AtOwnWidth(QWidget* field)
{
    auto* set = new QWidget;
    auto* row = new QHBoxLayout(set);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(field);
    row->addStretch(1);
    return set;
}

QWidget* Stacked(CaptionLabel* caption, QWidget* field)
{
    auto* set = new QWidget;
    auto* lines = new QVBoxLayout(set);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(2);
    lines->addWidget(caption);
    lines->addWidget(field);
    return set;
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
