#pragma once

#include "controls/Caption.h"
#include "controls/ModalScope.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>
#include <optional>

class QWidget;

namespace TradeForms {

/// Progress of work on many rows that runs on the GUI thread. If there are LongWork rows or more, a
/// modal window shows the progress and lets the user stop the work. The window is shown for the
/// lifetime of the object.
class Progress {
public:
    /// Number of rows from which the window is shown. Fewer are done before one could read it.
    static constexpr int LongWork = 20'000;

    Progress(QWidget* owner, const Caption& title, int rows);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Reports the number of rows done. Returns false once the user has stopped the work.
    bool Reached(int row);

private:
    class Box;

    void show();

    QWidget* owner_;
    int rows_;
    std::optional<Modal::Scope> scope_;
    std::unique_ptr<Box> box_;
    QElapsedTimer sinceShown_; ///< since the window was last updated
};

} // namespace TradeForms
