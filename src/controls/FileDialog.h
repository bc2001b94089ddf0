#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace TradeForms {

/// The texts of a Save As dialog.
struct SaveQuestion {
    QString Title;
    QString Name;   ///< suggested file name without folder and suffix
    QString Kind;   ///< description of the file type: "Spreadsheet"
    QString Suffix; ///< without the dot: "xlsx"
};

/// Shows a Save As dialog, which also asks before an existing file is replaced. Returns the full
/// path, or an empty string if the user cancels. The dialog starts in the folder chosen last.
QString AskWhereToSave(QWidget* owner, const SaveQuestion& question);

namespace Modal {
/// Test hook that replaces the dialog. The setter returns the previous presenter; an empty function
/// restores the real dialog.
using SavePresenter = std::function<QString(QWidget* owner, const SaveQuestion& question)>;
SavePresenter SetSavePresenter(SavePresenter presenter);
} // namespace Modal

} // namespace TradeForms
