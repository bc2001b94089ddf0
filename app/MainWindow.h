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

/// The menu: the user's screens, in groups. The filter box has the focus: letters or a number
/// filter the list, Up and Down choose, Enter opens.
class MainWindow : public QWidget {
    Q_OBJECT

public:
    /// The session must outlive the window.
    MainWindow(Session& session, const QString& database);

    /// Opens a screen; a failure is shown in a message box.
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
    /// Closes the library's windows, each of which may ask the user. Returns false where one stays
    /// open.
    bool closeForms();

    Session& session_;
    QLineEdit* filter_ = nullptr;
    QListWidget* list_ = nullptr;
};

} // namespace Host
