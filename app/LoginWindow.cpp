#include "LoginWindow.h"

#include "HostLook.h"
#include "Options.h"

#include <TradeForms/Failure.h>

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

namespace Host {

using namespace std::chrono_literals;

namespace {

QString loginCaption()
{
    return QStringLiteral("Log in Enter");
}

QLineEdit* newField(const QString& name, const QString& accessibleName, QWidget* parent)
{
    auto* field = new QLineEdit(parent);
    field->setObjectName(name);
    field->setAccessibleName(accessibleName);
    field->setMinimumWidth(260);
    // Names and passwords of users are Latin.
    field->setLayoutDirection(Qt::LeftToRight);
    return field;
}

} // namespace

LoginWindow::LoginWindow(const Users& users, const QString& companyName, const QString& database,
                         const QString& userName, QWidget* parent)
    : QDialog(parent), users_(users)
{
    setObjectName(QStringLiteral("LoginWindow"));
    setWindowTitle(QStringLiteral("Log in"));
    Look::Dress(this);
    build(companyName, database);

    txtUserName_->setText(userName);
    (userName.isEmpty() ? txtUserName_ : txtPassword_)->setFocus();

    connect(btnLogin_, &QPushButton::clicked, this, &LoginWindow::tryLogin);
    connect(btnExit_, &QPushButton::clicked, this, &QDialog::reject);
    second_ = new QTimer(this);
    second_->setObjectName(QStringLiteral("Second"));
    second_->setInterval(1s);
    connect(second_, &QTimer::timeout, this, &LoginWindow::countDown);
}

void LoginWindow::build(const QString& companyName, const QString& database)
{
    txtUserName_ = newField(QStringLiteral("TxtUserName"), QStringLiteral("User name"), this);
    txtPassword_ = newField(QStringLiteral("TxtPassword"), QStringLiteral("Password"), this);
    txtPassword_->setEchoMode(QLineEdit::Password);

    lblMessage_ = new QLabel(this);
    lblMessage_->setObjectName(QStringLiteral("LblMessage"));
    lblMessage_->setWordWrap(true);
    lblMessageUrdu_ = Look::UrduLabel({}, Look::Urdu(), this);
    for (QLabel* label : {lblMessage_, lblMessageUrdu_})
        label->setStyleSheet(QStringLiteral("color: %1").arg(Look::Warning().name()));
    lblMessage_->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    lblMessage_->setMinimumHeight(2 * lblMessage_->fontMetrics().height());

    btnLogin_ = new CaptionButton(QString::fromUtf8("داخل ہوں"), loginCaption(), this);
    btnLogin_->setObjectName(QStringLiteral("BtnLogin"));
    btnLogin_->setDefault(true);
    btnExit_ = new CaptionButton(QString::fromUtf8("بند"), QStringLiteral("Exit Esc"), this);
    btnExit_->setObjectName(QStringLiteral("BtnExit"));

    auto* fields = new QGridLayout;
    fields->setContentsMargins(20, 14, 20, 4);
    fields->setHorizontalSpacing(16);
    fields->setVerticalSpacing(8);
    fields->addWidget(
        Look::FieldCaption(QString::fromUtf8("صارف کا نام"), QStringLiteral("User name"), this), 0,
        0);
    fields->addWidget(txtUserName_, 0, 1);
    fields->addWidget(
        Look::FieldCaption(QString::fromUtf8("پاس ورڈ"), QStringLiteral("Password"), this), 1, 0);
    fields->addWidget(txtPassword_, 1, 1);
    fields->addWidget(lblMessageUrdu_, 2, 0, 1, 2);
    fields->addWidget(lblMessage_, 3, 0, 1, 2);
    fields->setColumnStretch(1, 1);

    auto* place = new QLabel(ShownDatabase(database), this);
    place->setFont(Look::SmallLatin());
    place->setStyleSheet(QStringLiteral("color: %1").arg(Look::MutedText().name()));
    place->setLayoutDirection(Qt::LeftToRight);

    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(20, 4, 20, 8);
    buttons->addWidget(btnLogin_);
    buttons->addStretch();
    buttons->addWidget(btnExit_);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(20, 0, 20, 10);
    foot->addStretch();
    foot->addWidget(place);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(new TitleStrip(companyName, {}, QStringLiteral("TradeForms"), this));
    column->addLayout(fields);
    column->addLayout(buttons);
    column->addLayout(foot);
}

void LoginWindow::ShowMessage(const QString& english, const QString& urdu)
{
    lblMessage_->setText(english);
    lblMessageUrdu_->setText(urdu);
}

void LoginWindow::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && txtUserName_->hasFocus()) {
        txtPassword_->setFocus();
        return;
    }
    // Elsewhere Enter presses the default button, unless that is disabled.
    QDialog::keyPressEvent(event);
}

void LoginWindow::tryLogin()
{
    ShowMessage({});
    try {
        account_ = users_.LogIn(txtUserName_->text(), txtPassword_->text());
    } catch (const TradeForms::Failure& failure) {
        ShowMessage(failure.Description());
        return;
    }
    txtPassword_->clear();
    if (account_) {
        accept();
        return;
    }
    ShowMessage(WrongLoginText(), WrongLoginTextUrdu());
    txtPassword_->setFocus();
    closeFor(throttle_.Failed());
}

void LoginWindow::closeFor(std::chrono::seconds delay)
{
    remaining_ = delay + 1s;
    btnLogin_->setEnabled(false);
    second_->start();
    countDown();
}

void LoginWindow::countDown()
{
    remaining_ -= 1s;
    if (remaining_ > 0s) {
        btnLogin_->SetEnglish(QStringLiteral("Wait %1 s").arg(remaining_.count()));
        return;
    }
    second_->stop();
    btnLogin_->SetEnglish(loginCaption());
    btnLogin_->setEnabled(true);
}

} // namespace Host
