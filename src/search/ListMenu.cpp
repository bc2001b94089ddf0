#include "search/ListMenu.h"

#include "controls/FileDialog.h"
#include "controls/Form.h"
#include "controls/Look.h"
#include "controls/Progress.h"
#include "controls/Utf8.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include <utility>

namespace TradeForms {

ListMenu::ListMenu(Form& form, std::function<ExportList()> list, std::function<int()> currentRow)
    : form_(form), list_(std::move(list)), currentRow_(std::move(currentRow))
{
}

void ListMenu::Show(const QPoint& position)
{
    auto* menu = new QMenu(&form_);
    menu->setObjectName(QStringLiteral("MnuList"));
    menu->setAccessibleName(QStringLiteral("Copy and export"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Look::Dress(*menu, Look::LatinFont());
    menu->setContentsMargins(6, 4, 6,
                             4); // else a shortcut touches the edge in right-to-left layout
    const auto add = [&](const char* name, const char* caption, auto action) {
        QAction* item = menu->addAction(utf8(caption));
        item->setObjectName(utf8(name));
        // Queued: an action may open a dialog, and the menu is being deleted.
        QObject::connect(
            item, &QAction::triggered, &form_, [this, action] { form_.Guard(action); },
            Qt::QueuedConnection);
        return item;
    };
    add(
        "mniCopyRow", "سطر کاپی کریں · Copy row\tCtrl+C", [this] { CopyRow(); })
        ->setEnabled(currentRow_() >= 0);
    add("mniCopyList", "پوری فہرست کاپی کریں · Copy whole list", [this] { copyList(); });
    menu->addSeparator();
    add("mniSaveCsv", "CSV میں محفوظ کریں · Save as CSV…", [this] {
        save(QStringLiteral("Comma-separated values"), QStringLiteral("csv"), ExportCsv);
    });
    if (CanExportXlsx())
        add("mniSaveXlsx", "ایکسل میں محفوظ کریں · Save as XLSX…",
            [this] { save(QStringLiteral("Spreadsheet"), QStringLiteral("xlsx"), ExportXlsx); });
    menu->popup(position);
    menu->setActiveAction(menu->actions().constFirst());
}

void ListMenu::CopyRow()
{
    const ExportList list = list_();
    const int row = currentRow_();
    if (row >= 0)
        QGuiApplication::clipboard()->setText(CopiedRow(list, row));
}

void ListMenu::copyList()
{
    const ExportList list = list_();
    Progress progress(&form_, {"فہرست کاپی ہو رہی ہے", "Copying the list"}, list.Rows);
    const QString text = CopiedList(list, [&](int row) { return progress.Reached(row); });
    if (!text.isNull())
        QGuiApplication::clipboard()->setText(text);
}

void ListMenu::save(const QString& kind, const QString& suffix, Writer write)
{
    const ExportList list = list_();
    const QString file = AskWhereToSave(&form_, {.Title = QStringLiteral("Save the list"),
                                                 .Name = list.Name,
                                                 .Kind = kind,
                                                 .Suffix = suffix});
    if (file.isEmpty())
        return;
    Progress progress(&form_, {"فہرست محفوظ ہو رہی ہے", "Saving the list"}, list.Rows);
    write(list, file, [&](int row) { return progress.Reached(row); });
}

} // namespace TradeForms
