#pragma once

#include "controls/Caption.h"
#include "controls/ModalScope.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>
#include <optional>

class QWidget;

namespace TradeForms {

/// Work that goes through many rows on this thread. Where they are so many that it takes a while,
/// a window tells how far it is and lets the user stop it; it is up for as long as this lives, and
/// no other window takes keys or clicks meanwhile.
class Progress {
public:
    /// Fewer rows than this are done before one could read what the window says.
    static constexpr int LongWork = 20'000;

    Progress(QWidget* owner, const Caption& title, int rows);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// This many rows are done. False once the user has stopped the work.
    bool Reached(int row);

private:
    class Box;

    void show();

    QWidget* owner_;
    int rows_;
    std::optional<Modal::Scope> scope_;
    std::unique_ptr<Box> box_;
    QElapsedTimer sinceShown_; ///< since the window was brought up to date
};

} // namespace TradeForms
