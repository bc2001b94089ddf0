#pragma once

#include "data/Statement.h"

#include <QList>
#include <QStringList>

#include <memory>

class QWidget;

namespace TradeForms {

class Recordset;
class Report;

/// Which copies a form prints.
struct CopyDeclaration {
    QList<int> Shown = {};  ///< options of SchPrint, from 1, that are shown
    QList<int> Hidden = {}; ///< options that are hidden; the others stay as they are
    QStringList Copies;     ///< the copy numbers in their printing order
};

/// What a form that prints holds: the rows of its report. They stay open, for the report reads
/// them lazily, until the next print or until the form closes.
class FormReport {
public:
    FormReport();
    ~FormReport();
    FormReport(const FormReport&) = delete;
    FormReport& operator=(const FormReport&) = delete;

    /// Opens the rows of a statement, passes them to the report, makes it the report of the shared
    /// viewer and selects the printer. Raises what the database raises; then the viewer keeps its
    /// report.
    void Feed(std::shared_ptr<Report> report, const Statement& statement);
    /// Asks for the copies with SchPrint over the owner, all copies preselected, and prints each as
    /// a job of its own. Without a choice nothing is printed. Raises Failure where a copy cannot be
    /// printed; the copies after it are not printed.
    static void PrintCopies(const CopyDeclaration& declaration, QWidget* owner);
    /// Closes the rows, if they are open.
    void Close();
    bool IsOpen() const;

private:
    std::shared_ptr<Recordset> rows_;
};

} // namespace TradeForms
