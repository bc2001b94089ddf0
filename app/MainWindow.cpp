#include "MainWindow.h"

#include "CareWindow.h"
#include "HelpWindow.h"
#include "HostLook.h"
#include "Options.h"
#include "Screens.h"
#include "Session.h"

#include <TradeForms/Transfer.h>

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QShortcut>
#include <QStyledItemDelegate>

#include <algorithm>

namespace Host {

namespace {

constexpr int englishRole = Qt::UserRole;
/// Number of the screen; 0 on the heading of a group.
constexpr int numberRole = Qt::UserRole + 1;

constexpr int listMargin = 14;
constexpr int badgeWidth = 30;

const Screen& screenOf(int number)
{
    return Screens()[std::size_t(number - 1)];
}

/// Draws number and Urdu caption at the right, the English one at the left.
class ScreenDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return {0, QFontMetrics(Look::Urdu()).height() + 6};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const int number = index.data(numberRole).toInt();
        const bool heading = number == 0;
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        if (heading)
            painter->fillRect(option.rect, Look::GroupBackground());
        else if (chosen)
            painter->fillRect(option.rect, Look::Accent());
        QRect area = option.rect.adjusted(listMargin, 0, -listMargin, 0);
        const QColor ink = chosen ? Look::AccentText() : heading ? Look::Accent() : Look::Text();
        if (!heading) {
            painter->setFont(Look::Latin());
            painter->setPen(chosen ? Look::AccentText() : Look::MutedText());
            painter->drawText(area, Qt::AlignRight | Qt::AlignVCenter, QString::number(number));
            area.setRight(area.right() - badgeWidth);
        }
        painter->setFont(Look::Urdu());
        painter->setPen(ink);
        painter->drawText(area, Qt::AlignRight | Qt::AlignVCenter, index.data().toString());
        painter->setFont(Look::Latin());
        painter->setPen(chosen ? Look::AccentText() : Look::MutedText());
        painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                          index.data(englishRole).toString());
        painter->restore();
    }
};

QListWidgetItem* newItem(const QString& urdu, const QString& english, int number)
{
    auto* item = new QListWidgetItem(urdu);
    item->setData(englishRole, english);
    item->setData(numberRole, number);
    item->setData(Qt::AccessibleTextRole, english);
    item->setFlags(number == 0 ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

bool matches(const QString& text, int number)
{
    const Screen& screen = screenOf(number);
    return text.isEmpty() || text == QString::number(number) ||
           QString::fromUtf8(screen.Urdu).contains(text) ||
           QLatin1String(screen.English).contains(text, Qt::CaseInsensitive) ||
           QLatin1String(screen.Method).contains(text, Qt::CaseInsensitive);
}

} // namespace

MainWindow::MainWindow(Session& session, const QString& database) : session_(session)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(session_.Company().NameUrdu + QStringLiteral(" - TradeForms"));
    Look::Dress(this);
    build(database);
    fillList();
    addShortcuts();
    resize(680, 560);
}

void MainWindow::build(const QString& database)
{
    filter_ = new QLineEdit(this);
    filter_->setObjectName(QStringLiteral("Filter"));
    filter_->setAccessibleName(QStringLiteral("Screen name or number"));
    filter_->setFont(Look::Urdu());
    filter_->setPlaceholderText(QString::fromUtf8("سکرین کا نام یا نمبر"));
    filter_->setMinimumHeight(QFontMetrics(Look::Urdu()).height() + 10);
    filter_->installEventFilter(this);

    list_ = new QListWidget(this);
    list_->setObjectName(QStringLiteral("Screens"));
    list_->setAccessibleName(QStringLiteral("Screens"));
    list_->setItemDelegate(new ScreenDelegate(list_));
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* help = new CaptionButton(QString::fromUtf8("مدد"), QStringLiteral("Keys F1"), this);
    help->setObjectName(QStringLiteral("BtnHelp"));
    auto* out =
        new CaptionButton(QString::fromUtf8("لاگ آؤٹ"), QStringLiteral("Log out Ctrl+L"), this);
    out->setObjectName(QStringLiteral("BtnLogOut"));
    auto* exit = new CaptionButton(QString::fromUtf8("بند"), QStringLiteral("Exit Ctrl+Q"), this);
    exit->setObjectName(QStringLiteral("BtnExit"));

    auto* place = new QLabel(ShownDatabase(database), this);
    place->setObjectName(QStringLiteral("LblDatabase"));
    place->setFont(Look::SmallLatin());
    place->setStyleSheet(QStringLiteral("color: %1").arg(Look::MutedText().name()));
    place->setLayoutDirection(Qt::LeftToRight);
    place->setWordWrap(true);

    auto* bar = new QHBoxLayout;
    bar->addWidget(help);
    bar->addWidget(place, 1);
    bar->addWidget(out);
    bar->addWidget(exit);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(18, 12, 18, 12);
    body->setSpacing(10);
    body->addWidget(filter_);
    body->addWidget(list_, 1);
    if (session_.IsAdministrator() && !TradeForms::IsConnectionString(database))
        body->addLayout(newCareBar(database));
    body->addLayout(bar);

    const QString user = QString::fromUtf8("صارف · ") + session_.Account().UserName;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(
        new TitleStrip(session_.Company().NameUrdu, QStringLiteral("TradeForms"), user, this));
    column->addLayout(body);

    connect(filter_, &QLineEdit::textChanged, this, &MainWindow::applyFilter);
    connect(filter_, &QLineEdit::returnPressed, this, &MainWindow::openCurrent);
    connect(list_, &QListWidget::itemActivated, this, &MainWindow::openCurrent);
    connect(help, &QPushButton::clicked, this, &MainWindow::showHelp);
    connect(out, &QPushButton::clicked, this, &MainWindow::logOut);
    connect(exit, &QPushButton::clicked, this, &QWidget::close);
    filter_->setFocus();
}

/// The administrator's tasks on the whole company.
QLayout* MainWindow::newCareBar(const QString& database)
{
    auto* backup =
        new CaptionButton(QString::fromUtf8("بیک اپ"), QStringLiteral("Back up Ctrl+B"), this);
    backup->setObjectName(QStringLiteral("BtnBackup"));
    auto* move = new CaptionButton(QString::fromUtf8("سرور پر منتقل"),
                                   QStringLiteral("Move to a server Ctrl+M"), this);
    move->setObjectName(QStringLiteral("BtnMove"));
    auto* bar = new QHBoxLayout;
    bar->addWidget(backup);
    bar->addWidget(move);
    bar->addStretch();
    connect(
        backup, &QPushButton::clicked, this, [this, database] { takeCare(BackupTask(database)); });
    connect(move, &QPushButton::clicked, this, [this, database] { takeCare(MoveTask(database)); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_B, this), &QShortcut::activated, backup,
            &QPushButton::click);
    connect(new QShortcut(Qt::CTRL | Qt::Key_M, this), &QShortcut::activated, move,
            &QPushButton::click);
    return bar;
}

void MainWindow::fillList()
{
    for (const ScreenGroup group :
         {ScreenGroup::Stock, ScreenGroup::Installment, ScreenGroup::Payroll}) {
        bool any = false;
        for (int number = 1; number <= int(Screens().size()); ++number) {
            const Screen& screen = screenOf(number);
            if (screen.Group != group || !session_.MayOpen(screen))
                continue;
            if (!any) {
                any = true;
                list_->addItem(newItem(GroupUrdu(group), GroupEnglish(group), 0));
            }
            list_->addItem(
                newItem(QString::fromUtf8(screen.Urdu), QLatin1String(screen.English), number));
        }
    }
    applyFilter({});
}

void MainWindow::addShortcuts()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(Qt::Key_F1, &MainWindow::showHelp);
    add(Qt::CTRL | Qt::Key_L, &MainWindow::logOut);
    add(Qt::CTRL | Qt::Key_Q, &QWidget::close);
    for (int row = 0; row < list_->count(); ++row) {
        const int number = list_->item(row)->data(numberRole).toInt();
        if (number >= 1 && number <= 9) {
            add(
                QKeyCombination(Qt::ALT, Qt::Key(Qt::Key_0 + number)),
                [this, number] { Open(screenOf(number)); });
        }
    }
}

void MainWindow::applyFilter(const QString& text)
{
    const QString wanted = text.trimmed();
    QListWidgetItem* heading = nullptr;
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < list_->count(); ++row) {
        QListWidgetItem* item = list_->item(row);
        const int number = item->data(numberRole).toInt();
        if (number == 0) {
            heading = item;
            heading->setHidden(true);
            continue;
        }
        const bool shown = matches(wanted, number);
        item->setHidden(!shown);
        if (shown) {
            heading->setHidden(false);
            first = first ? first : item;
        }
    }
    list_->setCurrentItem(first);
}

void MainWindow::openCurrent()
{
    const QListWidgetItem* item = list_->currentItem();
    if (item && !item->isHidden())
        Open(screenOf(item->data(numberRole).toInt()));
}

void MainWindow::Open(const Screen& screen)
{
    try {
        session_.Open(screen);
    } catch (const std::exception& failure) {
        QMessageBox::critical(this, QLatin1String(screen.English),
                              QString::fromUtf8(failure.what()));
    }
}

void MainWindow::logOut()
{
    if (closeForms())
        Q_EMIT LogOutRequested();
}

void MainWindow::showHelp()
{
    HelpWindow(this).exec();
}

void MainWindow::takeCare(const CareTask& task)
{
    CareWindow(task, this).exec();
}

bool MainWindow::closeForms()
{
    // Closing a form may close others, so the list is read again each time.
    QList<QPointer<QWidget>> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        windows.append(window);
    return std::ranges::all_of(windows, [this](const QPointer<QWidget>& window) {
        return !window || window == this || !window->isVisible() || window->close();
    });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!closeForms()) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT LeaveRequested();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == filter_ && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QApplication::sendEvent(list_, event);
            return true;
        case Qt::Key_Escape:
            filter_->clear();
            return true;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace Host
