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

/// Asks for user name and password until they are right or the user cancels. After a wrong password
/// the button is disabled for a while, longer each time, and counts the seconds; the fields stay
/// enabled.
class LoginWindow : public QDialog {
    Q_OBJECT

public:
    /// Shows the company's name in the title; fills in the user name, if one is given.
    LoginWindow(const Users& users, const QString& companyName, const QString& database,
                const QString& userName = {}, QWidget* parent = nullptr);

    /// The user who logged in, once the dialog was accepted.
    const std::optional<UserAccount>& Account() const { return account_; }

    /// Shows a message.
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
