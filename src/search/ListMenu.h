#pragma once

#include "search/ListExport.h"

#include <QString>

#include <functional>

class QPoint;

namespace TradeForms {

class Form;

/// The context menu of a list: its row or the whole of it goes to the clipboard or into a file.
class ListMenu {
public:
    /// `list` gives the list as it stands, `currentRow` the row that is marked, or -1.
    ListMenu(Form& form, std::function<ExportList()> list, std::function<int()> currentRow);
    ListMenu(const ListMenu&) = delete;
    ListMenu& operator=(const ListMenu&) = delete;

    /// At a position of the screen.
    void Show(const QPoint& position);
    /// What Ctrl+C in the list does. Nothing where no row is marked.
    void CopyRow();

private:
    using Writer = bool (*)(const ExportList& list, const QString& file,
                            const ExportProgress& goesOn);

    void copyList();
    void save(const QString& kind, const QString& suffix, Writer write);

    Form& form_;
    std::function<ExportList()> list_;
    std::function<int()> currentRow_;
};

} // namespace TradeForms
