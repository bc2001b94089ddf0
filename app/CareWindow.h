#pragma once

#include "BackgroundWork.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QProgressBar;

namespace Host {

class CaptionButton;

/// A maintenance task on the whole company, with a destination that the administrator names.
struct CareTask {
    QString Name; ///< of the window, for tests
    QString Urdu;
    QString English;
    QString PlaceUrdu;
    QString PlaceEnglish;
    QString Proposal; ///< proposed destination
    QString Hint;     ///< placeholder of the empty destination field
    QString Explanation;
    /// Asks for the destination in a dialog; without it there is no button for that.
    std::function<QString(QWidget* parent, const QString& present)> Choose;
    /// Runs on another thread. Returns the message for the user.
    std::function<QString(const QString& place, const TradeForms::OnProgress&)> Work;
};

/// Copies the company file into a backup.
CareTask BackupTask(const QString& database);
/// Copies the company to a database server.
CareTask MoveTask(const QString& database);

/// Asks for the destination, runs the task with a progress bar, and shows the result in a message.
/// The task can be cancelled at any time.
class CareWindow : public QDialog {
    Q_OBJECT

public:
    CareWindow(CareTask task, QWidget* parent);

    /// Closes the window, or cancels the running task.
    void reject() override;

private:
    void build();
    void choose();
    void start();
    void advance(const TradeForms::WorkProgress& progress);
    void setRunning(bool isRunning);
    void done(const QString& text);
    void failed(const QString& text);
    void stopped();

    CareTask task_;
    BackgroundWork work_;
    QLineEdit* txtPlace_ = nullptr;
    CaptionButton* btnChoose_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QLabel* lblStageUrdu_ = nullptr;
    QLabel* lblStage_ = nullptr;
    CaptionButton* btnStart_ = nullptr;
    CaptionButton* btnClose_ = nullptr;
};

} // namespace Host
