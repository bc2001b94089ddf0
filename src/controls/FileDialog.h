#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace TradeForms {

/// What is to be saved, for the dialog that asks where.
struct SaveQuestion {
    QString Title;
    QString Name;   ///< proposed, without folder and suffix
    QString Kind;   ///< what such a file is: "Spreadsheet"
    QString Suffix; ///< without the dot: "xlsx"
};

/// Asks where a file is to be saved, and whether one that is there may be replaced. The whole
/// path; empty where the user has thought better of it. The next question begins in the folder
/// that was chosen last.
QString AskWhereToSave(QWidget* owner, const SaveQuestion& question);

namespace Modal {
/// The seam through which tests answer the question. The setter gives back the one before; an
/// empty function is the real dialog.
using SavePresenter = std::function<QString(QWidget* owner, const SaveQuestion& question)>;
SavePresenter SetSavePresenter(SavePresenter presenter);
} // namespace Modal

} // namespace TradeForms
