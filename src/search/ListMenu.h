#pragma once

#include "search/ListExport.h"

#include <QString>

#include <functional>

class QPoint;

namespace TradeForms {

class Form;

/// The context menu of a list: copies the current row or the whole list, or exports the list to a
/// file.
class ListMenu {
public:
    /// `list` returns the list as it is shown, `currentRow` the index of the current row, or -1.
    ListMenu(Form& form, std::function<ExportList()> list, std::function<int()> currentRow);
    ListMenu(const ListMenu&) = delete;
    ListMenu& operator=(const ListMenu&) = delete;

    /// Shows the menu at a position in screen coordinates.
    void Show(const QPoint& position);
    /// Copies the current row to the clipboard (Ctrl+C in the list). Does nothing without a current
    /// row.
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
