#pragma once

#include <QWidget>

class QCloseEvent;
class QLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace Host {

struct CareTask;
struct Screen;
class Session;

/// The menu: the screens of the user, in groups. The filter box has the keyboard: letters or a
/// number narrow the list, Up and Down choose, Enter opens.
class MainWindow : public QWidget {
    Q_OBJECT

public:
    /// The session must outlive the window.
    MainWindow(Session& session, const QString& database);

    /// Opens a screen and tells in a message box if that fails.
    void Open(const Screen& screen);

Q_SIGNALS:
    /// The window was closed, and all forms with it.
    void LeaveRequested();
    void LogOutRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build(const QString& database);
    QLayout* newCareBar(const QString& database);
    void fillList();
    void addShortcuts();
    void applyFilter(const QString& text);
    void openCurrent();
    void logOut();
    void showHelp();
    void takeCare(const CareTask& task);
    /// Closes the library's windows, each through its own question; false where one stays.
    bool closeForms();

    Session& session_;
    QLineEdit* filter_ = nullptr;
    QListWidget* list_ = nullptr;
};

} // namespace Host
