#include "reports/SchPrint.h"

#include "controls/Look.h"
#include "controls/Utf8.h"
#include "reports/SharedForm.h"

#include <QBoxLayout>
#include <QGridLayout>

#include <stdexcept>

namespace TradeForms {

namespace {

OptionButton& option(QWidget* form, const char* name, const char* english)
{
    return *new OptionButton(utf8(name), utf8(english), form);
}

} // namespace

SchPrint::SchPrint()
    : Option1(option(this, "Option1", "Copy One")), Option2(option(this, "Option2", "Copy Two")),
      Option3(option(this, "Option3", "Copy Three")),
      Option4(option(this, "Option4", "All Copies")),
      BtnSelect(
          BarButton(this, "BtnSelect", {"منتخب", "Select"}, "Enter", JeweledButton::Kind::Primary)),
      BtnClose(BarButton(this, "BtnClose", {"بند", "Close"}, "Esc")),
      choices_{choice(Option1, "1", {"پہلی کاپی", "Copy One"}),
               choice(Option2, "2", {"دوسری کاپی", "Copy Two"}),
               choice(Option3, "3", {"تیسری کاپی", "Copy Three"}),
               choice(Option4, "B", {"تمام کاپیاں", "All Copies"})}
{
    setObjectName(QStringLiteral("SchPrint"));
    SetWindowCaption(QStringLiteral("Print"));
    compose();
    attach();
    SetTabOrderOf({&Option1, &Option2, &Option3, &Option4, &BtnSelect, &BtnClose});
}

SchPrint::~SchPrint() = default;

SchPrint& SchPrint::Shared()
{
    return SharedForm<SchPrint>();
}

SchPrint::Choice SchPrint::choice(OptionButton& option, const char* code, const Caption& caption)
{
    return {option, utf8(code), *new Label({}, utf8(caption.Urdu), this),
            *new Label({}, utf8(caption.English), this)};
}

void SchPrint::compose()
{
    auto* title = new TitleStrip(Caption{"پرنٹ", "Print"});
    title->ImgMin().SetVisible(false);
    title->ImgExit().OnClick += [this] { Unload(); };

    auto* options = new QWidget;
    auto* grid = new QGridLayout(options);
    grid->setContentsMargins(3 * Look::Space(), 2 * Look::Space(), 3 * Look::Space(),
                             2 * Look::Space());
    grid->setHorizontalSpacing(Look::Space());
    grid->setVerticalSpacing(Look::Space() / 2);
    grid->setColumnStretch(2, 1);
    grid->setColumnMinimumWidth(1, 110);
    for (const Choice& each : choices_)
        addRow(*grid, each);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(1, 1, 1, 1);
    all->setSpacing(0);
    // Resize the window: a hidden option leaves no gap.
    all->setSizeConstraint(QLayout::SetFixedSize);
    all->addWidget(title);
    all->addWidget(options, 1);
    all->addWidget(ButtonBar({&BtnSelect}, {&BtnClose}));
}

void SchPrint::addRow(QGridLayout& grid, const Choice& choice)
{
    choice.Urdu.setFont(Look::CaptionUrdu());
    choice.English.setFont(Look::CaptionLatin());
    choice.English.SetForeColor(Look::MutedText());
    const int row = grid.rowCount();
    grid.addWidget(&choice.Option, row, 0);
    grid.addWidget(&choice.Urdu, row, 1);
    grid.addWidget(&choice.English, row, 2);
}

void SchPrint::attach()
{
    for (const Choice& each : choices_) {
        OptionButton& option = each.Option;
        option.OnClick += [this, &option] { ClickOption(option); };
        for (Label* caption : {&each.Urdu, &each.English}) {
            caption->OnClick += [this, &option] {
                if (SetFocus(option))
                    ClickOption(option);
            };
        }
    }
    BtnSelect.OnClick += [this] { select(); };
    BtnClose.OnClick += [this] { Unload(); };
    // Closing the window in any other way chooses nothing.
    connect(this, &Form::Unloaded, this, [this] {
        loaded_ = false;
        if (!selected_)
            ParaOutPrint.clear();
    });
}

OptionButton& SchPrint::Option(int number) const
{
    if (number < 1 || number > choices_.size())
        throw std::out_of_range("SchPrint::Option");
    return choices_[number - 1].Option;
}

void SchPrint::Load()
{
    if (loaded_)
        return;
    loaded_ = true;
    selected_ = false;
    ClickOption(Option1);
}

void SchPrint::SetOptionVisible(OptionButton& option, bool visible)
{
    Load();
    for (const Choice& each : choices_) {
        if (&each.Option == &option) {
            option.SetVisible(visible);
            each.Urdu.SetVisible(visible);
            each.English.SetVisible(visible);
        }
    }
}

void SchPrint::ClickOption(OptionButton& option)
{
    Load();
    // One tab stop for the group, as its arrow keys choose within it.
    for (const Choice& each : choices_) {
        const bool chosen = &each.Option == &option;
        each.Option.SetTabStop(chosen);
        if (chosen) {
            ParaOutPrint = each.Code;
            each.Option.setChecked(true);
        }
    }
}

void SchPrint::Show(QWidget* owner)
{
    Load();
    for (const Choice& each : choices_)
        if (each.Option.Value())
            ResetFocus(each.Option);
    ShowModal(owner);
}

void SchPrint::select()
{
    selected_ = true;
    Unload();
}

void SchPrint::FormKeyDown(KeyPress& key)
{
    switch (key.Code) {
    case Qt::Key_Return:
        key.Swallow();
        select();
        return;
    case Qt::Key_Escape:
        key.Swallow();
        Unload();
        return;
    default:
        Form::FormKeyDown(key);
    }
}

} // namespace TradeForms
