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
    QList<int> Shown =
        {}; ///< options of SchPrint, from 1, that are made visible before it comes up
    QList<int> Hidden = {}; ///< and those that are hidden; the rest stay as they are
    QStringList Copies;     ///< the copy numbers, in the order in which all of them are printed
};

/// What a form that prints holds: the rows of its report. They stay open, for the report reads
/// them lazily, until the next print or until the form closes.
class FormReport {
public:
    FormReport();
    ~FormReport();
    FormReport(const FormReport&) = delete;
    FormReport& operator=(const FormReport&) = delete;

    /// Opens the rows on a statement, puts the report into the viewer's shared instance, gives
    /// it the rows and selects the printer. Raises what the database raises: then the viewer
    /// keeps the report it had.
    void Feed(std::shared_ptr<Report> report, const Statement& statement);
    /// Asks for the copies in SchPrint, over the owner, and prints them in their order, each as
    /// a job of its own. All copies are the default. Without a choice nothing is printed.
    /// Raises Failure where a copy cannot be printed; those after it are left out.
    static void PrintCopies(const CopyDeclaration& declaration, QWidget* owner);
    /// Closes the rows, if they are open.
    void Close();
    bool IsOpen() const;

private:
    std::shared_ptr<Recordset> rows_;
};

} // namespace TradeForms
