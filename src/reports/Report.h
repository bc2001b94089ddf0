#pragma once

#include "reports/Document.h"
#include "reports/ReportDeclaration.h"
#include <TradeForms/Printing.h>

#include <QString>

#include <memory>

namespace TradeForms {

class Recordset;

/// A report to be printed or shown: the copy of a declaration that may be changed, with its rows,
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

    /// The printer by its three strings, which the print port resolves as it can.
    void SelectPrinter(const QString& driver, const QString& name, const QString& port);
    /// The printer's numbered paper setting; it changes nothing of the layout.
    void SetPaper(int number) { paper_ = number; }
    int PaperNumber() const { return paper_; }

    /// A parameter field; the first is 1. Raises Failure for one that the report does not have,
    /// TypeMismatchFailure where a numeric one gets something else.
    void SetParameter(int index, const QString& value);
    QString Parameter(int index) const;

    /// The title with the voucher's key, "Gate Pass 12". Raises Failure where the rows are closed.
    QString Title() const;

    /// What goes to the print port with the document: the printer's three strings, the title, and
    /// the first parameter as the copy. Raises Failure where the rows are closed.
    PrintJob Job() const;

    /// Fills the header as its section is laid out: the logo's location, or no logo, and the
    /// company's name.
    void ReportHeaderSection1_Format();

    /// Lays the report out, page after page as they are asked for. Later changes of the report
    /// do not change the document. Raises Failure where it has no rows, or these are closed.
    Document Format();

    /// Lays the report out and gives it to the print port. There is no dialog of its own: prompt
    /// has to be false. Raises Failure where printing fails.
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

/// Takes the colours of all objects away: no back colour for texts and fields, white boxes. An
/// object whose name begins with NO, in capitals or not, keeps its own.
void RemoveObjectColors(Report& report);

} // namespace TradeForms
