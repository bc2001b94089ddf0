#pragma once

#include <QList>
#include <QProcess>
#include <QString>

#include <chrono>
#include <functional>

/// What a clerk's process has told so far.
struct ClerksWord {
    struct Saved {
        qlonglong Id = 0;
        qlonglong Token = 0;
    };

    bool IsReady = false;
    bool IsDone = false;
    int Races = 0;
    QList<Saved> Reported;
    QStringList Boxes; ///< texts of boxes that nobody should see
};

/// Runs saving_clerk, the workstation of its own, and reads what it tells.
class ClerkProcess {
public:
    ClerkProcess(const QString& company, qlonglong firstToken, qlonglong count);
    ~ClerkProcess();
    ClerkProcess(const ClerkProcess&) = delete;
    ClerkProcess& operator=(const ClerkProcess&) = delete;

    /// Reads on until this holds; false where the process has ended before.
    bool WaitFor(const std::function<bool(const ClerksWord&)>& condition);
    /// Lets it begin to save.
    void Start();
    /// Ends it by SIGKILL, at this very moment, and reads what it had told.
    void Kill();
    /// Waits for its own end; true where it ended well.
    bool Finish();

    const ClerksWord& Word() const { return word_; }

private:
    void read();

    QProcess process_;
    QByteArray unread_;
    ClerksWord word_;
};
