#pragma once

#include "LoginThrottle.h"
#include "Users.h"

#include <QDialog>

#include <optional>

class QLabel;
class QLineEdit;
class QTimer;

namespace Host {

class CaptionButton;

/// Asks for user name and password until they are right or the user gives up. After a wrong
/// one the button stays closed for a while, longer each time, and counts the seconds; the
/// fields stay open for typing.
class LoginWindow : public QDialog {
    Q_OBJECT

public:
    /// The company's name stands in the title; a user name that is known already is filled in.
    LoginWindow(const Users& users, const QString& companyName, const QString& database,
                const QString& userName = {}, QWidget* parent = nullptr);

    /// Who logged in, once the dialog was accepted.
    const std::optional<UserAccount>& Account() const { return account_; }

    /// Shows a text in the place of the messages.
    void ShowMessage(const QString& english, const QString& urdu = {});

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build(const QString& companyName, const QString& database);
    void tryLogin();
    void closeFor(std::chrono::seconds delay);
    void countDown();

    const Users& users_;
    std::optional<UserAccount> account_;
    LoginThrottle throttle_;
    QTimer* second_ = nullptr;
    std::chrono::seconds remaining_{0};

    QLineEdit* txtUserName_ = nullptr;
    QLineEdit* txtPassword_ = nullptr;
    QLabel* lblMessage_ = nullptr;
    QLabel* lblMessageUrdu_ = nullptr;
    CaptionButton* btnLogin_ = nullptr;
    CaptionButton* btnExit_ = nullptr;
};

} // namespace Host
