#pragma once

#include "BackgroundWork.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QProgressBar;

namespace Host {

class CaptionButton;

/// Something that an administrator does with the whole company, in a place that he names.
struct CareTask {
    QString Name; ///< of the window, for tests
    QString Urdu;
    QString English;
    QString PlaceUrdu;
    QString PlaceEnglish;
    QString Proposal; ///< of the place
    QString Hint;     ///< what the place looks like, while the field is empty
    QString Explanation;
    /// Asks for the place in a dialog; without it there is no button for that.
    std::function<QString(QWidget* parent, const QString& present)> Choose;
    /// On another thread; gives what there is to tell.
    std::function<QString(const QString& place, const TradeForms::OnProgress&)> Work;
};

/// Copies the company file into a backup.
CareTask BackupTask(const QString& database);
/// Copies the company to a database server.
CareTask MoveTask(const QString& database);

/// Asks for the place, does the work with a bar that tells how far it is, and tells in a message
/// how it ended. It can be stopped at any time.
class CareWindow : public QDialog {
    Q_OBJECT

public:
    CareWindow(CareTask task, QWidget* parent);

    /// Closes the window, or stops the work that is going on.
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
