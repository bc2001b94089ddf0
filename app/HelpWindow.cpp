#include "HelpWindow.h"

#include "HostLook.h"

#include <QGridLayout>
#include <QLabel>

#include <span>

namespace Host {

namespace {

struct KeyHelp {
    const char* Key;
    const char* Urdu;
    const char* English;
};

constexpr KeyHelp formKeys[] = {
    {"Enter", "اگلا خانہ", "Next field"},
    {"F1", "کوڈ کی فہرست", "List of codes for this field"},
    {"Esc", "اندراج کی سطر صاف", "Clear the entry row"},
    {"Down", "مال کے کوڈ سے گرڈ میں", "From the product code to the grid"},
    {"F12", "محفوظ بٹن پر", "To the Save button"},
    {"Ctrl+S", "محفوظ", "Save"},
    {"Ctrl+O", "کھولیں", "Open"},
    {"Ctrl+P", "پرنٹ", "Print"},
    {"Ctrl+R", "حذف", "Delete"},
    {"Ctrl+W", "صاف", "Clear"},
    {"Ctrl+Q", "بند", "Close"},
};

constexpr KeyHelp menuKeys[] = {
    {"Up, Down", "سکرین چنیں", "Choose a screen"},
    {"Enter", "سکرین کھولیں", "Open the screen"},
    {"Alt+1 … 9", "نمبر سے کھولیں", "Open a screen by its number"},
    {"Ctrl+B", "بیک اپ", "Back up (administrators)"},
    {"Ctrl+M", "سرور پر منتقل", "Move to a server (administrators)"},
    {"Ctrl+L", "لاگ آؤٹ", "Log out"},
    {"Ctrl+Q", "بند", "Exit"},
};

int addKeys(QGridLayout* grid, int row, const QString& urdu, const QString& english,
            std::span<const KeyHelp> keys)
{
    auto* head = Look::UrduLabel(urdu + QStringLiteral("   ") + english, Look::Urdu(), nullptr);
    head->setStyleSheet(QStringLiteral("color: %1").arg(Look::Accent().name()));
    grid->addWidget(head, row++, 0, 1, 3);
    for (const KeyHelp& help : keys) {
        auto* key = new QLabel(QString::fromUtf8(help.Key));
        key->setStyleSheet(QStringLiteral("background: white; border: 1px solid %1;"
                                          " border-radius: 3px; padding: 2px 8px;")
                               .arg(Look::Border().name()));
        key->setAlignment(Qt::AlignCenter);
        grid->addWidget(key, row, 0);
        grid->addWidget(Look::UrduLabel(QString::fromUtf8(help.Urdu), Look::Urdu(), nullptr), row,
                        1);
        auto* text = new QLabel(QString::fromUtf8(help.English));
        text->setStyleSheet(QStringLiteral("color: %1").arg(Look::MutedText().name()));
        text->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
        grid->addWidget(text, row++, 2);
    }
    return row;
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(QStringLiteral("Keys"));
    Look::Dress(this);

    auto* grid = new QGridLayout;
    grid->setContentsMargins(20, 8, 20, 4);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(3);
    const int row = addKeys(grid, 0, QString::fromUtf8("فارم"), QStringLiteral("Forms"), formKeys);
    addKeys(grid, row, QString::fromUtf8("مینو"), QStringLiteral("This menu"), menuKeys);
    grid->setColumnStretch(2, 1);

    auto* close = new CaptionButton(QString::fromUtf8("بند"), QStringLiteral("Close Esc"), this);
    close->setObjectName(QStringLiteral("BtnClose"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(20, 4, 20, 12);
    buttons->addStretch();
    buttons->addWidget(close);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(
        new TitleStrip(QString::fromUtf8("کلیدیں"), QStringLiteral("Keys"), {}, this));
    column->addLayout(grid);
    column->addLayout(buttons);
}

} // namespace Host
