#pragma once

#include "reports/Document.h"
#include "reports/ReportDeclaration.h"
#include <TradeForms/Printing.h>

#include <QString>

#include <memory>

namespace TradeForms {

class Recordset;

/// A report to print or show: a copy of its declaration, which a caller may change, with its rows,
/// parameters and printer.
class Report {
public:
    explicit Report(ReportDeclaration declaration);
    virtual ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    QString Name() const { return declaration_.Name; }
    const ReportDeclaration& Declaration() const { return declaration_; }

    /// The sections and objects, which a caller may change before the report is laid out.
    QList<ReportSection>& Sections() { return declaration_.Sections; }
    /// An object by its name, without regard to case. Raises Failure where there is none.
    ReportObject& Object(const QString& name);

    /// The rows, read when pages are laid out: they have to stay open as long as pages are asked
    /// for. Raises Failure where the data tag is not 3, a recordset, or the table not 1, the only
    /// one.
    void SetDataSource(std::shared_ptr<Recordset> rows, int dataTag = 3, int tableNumber = 1);

    /// Selects the printer by driver, name and port; the print port finds the best match.
    void SelectPrinter(const QString& driver, const QString& name, const QString& port);
    /// The printer's paper size number; the layout does not depend on it.
    void SetPaper(int number) { paper_ = number; }
    int PaperNumber() const { return paper_; }

    /// A parameter field; the first is 1. Raises Failure for one that the report does not have,
    /// TypeMismatchFailure where a numeric one gets something else.
    void SetParameter(int index, const QString& value);
    QString Parameter(int index) const;

    /// The title with the voucher's key, "Gate Pass 12". Raises Failure where the rows are closed.
    QString Title() const;

    /// The job for the print port: the selected printer, the title, and the first parameter as the
    /// copy. Raises Failure where the rows are closed.
    PrintJob Job() const;

    /// Fills the header as its section is laid out: the logo's location, or no logo, and the
    /// company's name.
    void ReportHeaderSection1_Format();

    /// Returns the document, whose pages are laid out on demand. Later changes of the report
    /// do not change the document. Raises Failure where it has no rows, or these are closed.
    Document Format();

    /// Lays the report out and gives it to the print port. There is no print dialog: prompt has to
    /// be false. Raises Failure where printing fails.
    void PrintOut(bool prompt);

private:
    ReportDeclaration declaration_;
    std::shared_ptr<Recordset> rows_;
    QStringList parameters_;
    QString driver_;
    QString printer_;
    QString port_;
    int paper_ = 0;
};

/// Removes the colours of all objects: no background for texts and fields, white boxes. Objects
/// whose names begin with NO, in any case, keep theirs.
void RemoveObjectColors(Report& report);

} // namespace TradeForms
