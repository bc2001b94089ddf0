#include "controls/FileDialog.h"

#include "controls/ModalScope.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <QWidget>

#include <utility>

namespace TradeForms {

namespace {

Modal::SavePresenter savePresenter;

QString askForReal(QWidget* owner, const SaveQuestion& question)
{
    static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QFileDialog dialog(owner ? owner->window() : nullptr, question.Title, folder);
    dialog.setObjectName(QStringLiteral("SaveAs"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(question.Kind, question.Suffix));
    dialog.setDefaultSuffix(question.Suffix);
    dialog.selectFile(question.Name + QLatin1Char('.') + question.Suffix);
    const Modal::Scope scope;
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QString file = dialog.selectedFiles().constFirst();
    folder = QFileInfo(file).absolutePath();
    return file;
}

} // namespace

QString AskWhereToSave(QWidget* owner, const SaveQuestion& question)
{
    return savePresenter ? savePresenter(owner, question) : askForReal(owner, question);
}

namespace Modal {

SavePresenter SetSavePresenter(SavePresenter presenter)
{
    return std::exchange(savePresenter, std::move(presenter));
}

} // namespace Modal

} // namespace TradeForms
