// A gate pass of 3,000 lines as a report, each figure beside what Qt does by itself with the same
// texts: a painter that draws them, a text document that holds them in a table.

#include "controls/Utf8.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "host/HostContext.h"
#include "reports/CrpGatePassDetail.h"
#include "reports/Document.h"
#include "support/TestCompany.h"

#include <benchmark/benchmark.h>

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

#include <malloc.h>

#include <memory>

namespace {

using namespace TradeForms;

constexpr int Lines = 3000;
constexpr int Repetitions = 7;
constexpr double PixelsPerTenth = 96 / 254.0;

/// A company with one gate pass of 3,000 lines, and its report.
class PrintedPass {
public:
    PrintedPass()
    {
        company_.Run(
            utf8("INSERT INTO GatePassHeader (GatePassID, isPosted, GatePassDate, DriverCode,"
                 " ReceivingCode, AreaCode, BranchCode, Supply, Sale, \"Order\", UserNo)"
                 " VALUES (1, 0, '2026-03-05', '2014', '3107', 'Kot', 1, 0, 1, 0, 1);"
                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)"
                 " INSERT INTO Products (ProductID, ProductName)"
                 " SELECT 10000 + i, 'موٹر سائیکل نمبر ' || i FROM n;"
                 "INSERT INTO GatePassBody SELECT 1, ProductID, 3, 1, 2.5 FROM Products"
                 " WHERE ProductName LIKE '%نمبر%'")
                .arg(Lines));
        connection_ = company_.Connect();
        HostContext::NameUrdu = utf8("مدینہ ٹریڈرز قصور");
        rows_->Open(CrpGatePassDetail::Source(utf8("1")), connection_);
        report_.SetDataSource(rows_);
        report_.SetParameter(1, utf8("1"));
    }

    Document Formatted() { return report_.Format(); }

    /// The same rows as one table of a text document, laid out on the same paper.
    std::unique_ptr<QTextDocument> AsTextDocument() const
    {
        QString html = utf8("<table dir='rtl' width='100%'>");
        const int code = rows_->FieldIndex(u"ProductID");
        const int name = rows_->FieldIndex(u"ProductName");
        const int out = rows_->FieldIndex(u"OutNewProducts");
        const int old = rows_->FieldIndex(u"ReturnOldProducts");
        const int fresh = rows_->FieldIndex(u"ReturnNewProducts");
        for (int row = 0; row < rows_->RecordCount(); ++row) {
            html += utf8("<tr>");
            for (const int field : {code, name, out, old, fresh})
                html += utf8("<td>") + rows_->ValueAt(row, field).toString() + utf8("</td>");
            html += utf8("</tr>");
        }
        html += utf8("</table>");
        auto document = std::make_unique<QTextDocument>();
        document->setHtml(html);
        document->setPageSize(QSizeF(2100, 1480) * PixelsPerTenth);
        return document;
    }

private:
    TestCompany company_;
    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Recordset> rows_ = std::make_shared<Recordset>();
    CrpGatePassDetail report_;
};

PrintedPass& pass()
{
    static PrintedPass made;
    return made;
}

QImage paper(const Document& document)
{
    QImage image((document.PageSize() * PixelsPerTenth).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

// ---- The first page, as the window shows it

void firstPageOurs(benchmark::State& state)
{
    pass();
    for (auto _ : state) {
        const Document document = pass().Formatted();
        QImage image = paper(document);
        QPainter painter(&image);
        painter.scale(PixelsPerTenth, PixelsPerTenth);
        document.Paint(painter, 0);
    }
}

void firstPageBaseline(benchmark::State& state)
{
    const Document document = pass().Formatted();
    const QList<TextRun> texts = document.PageAt(0).Texts();
    for (auto _ : state) {
        QImage image = paper(document);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::TextAntialiasing);
        painter.scale(PixelsPerTenth, PixelsPerTenth);
        for (const TextRun& run : texts) {
            painter.setFont(run.Font);
            painter.drawText(run.Origin, run.Text);
        }
    }
}

// ---- All pages

void allPagesOurs(benchmark::State& state)
{
    pass();
    for (auto _ : state) {
        const Document document = pass().Formatted();
        if (document.PageCount() < Lines / 20)
            state.SkipWithError("lines are missing");
    }
}

void allPagesBaseline(benchmark::State& state)
{
    pass();
    for (auto _ : state) {
        const auto document = pass().AsTextDocument();
        if (document->pageCount() < Lines / 50)
            state.SkipWithError("lines are missing");
    }
}

// ---- PDF

qint64 ourPdf(const Document& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    document.WritePdf(buffer);
    return buffer.size();
}

qint64 baselinePdf(const QTextDocument& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageLayout(pass().Formatted().PageLayout());
    document.print(&writer);
    return buffer.size();
}

void pdfOurs(benchmark::State& state)
{
    const Document document = pass().Formatted();
    document.PageCount();
    for (auto _ : state)
        benchmark::DoNotOptimize(ourPdf(document));
}

void pdfBaseline(benchmark::State& state)
{
    const auto document = pass().AsTextDocument();
    document->pageCount();
    for (auto _ : state)
        benchmark::DoNotOptimize(baselinePdf(*document));
}

void pdfSizeOurs(benchmark::State& state)
{
    for (auto _ : state)
        state.counters["memory"] = double(ourPdf(pass().Formatted()));
}

void pdfSizeBaseline(benchmark::State& state)
{
    for (auto _ : state)
        state.counters["memory"] = double(baselinePdf(*pass().AsTextDocument()));
}

// ---- Memory of the pages

void memoryOurs(benchmark::State& state)
{
    pass();
    for (auto _ : state) {
        const double before = heapBytes();
        const Document document = pass().Formatted();
        document.PageCount();
        state.counters["memory"] = heapBytes() - before;
    }
}

void memoryBaseline(benchmark::State& state)
{
    pass();
    for (auto _ : state) {
        const double before = heapBytes();
        const auto document = pass().AsTextDocument();
        document->pageCount();
        state.counters["memory"] = heapBytes() - before;
    }
}

BENCHMARK(firstPageOurs)
    ->Name("report of 3,000 lines: first page shown/ours")
    ->Repetitions(Repetitions)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(firstPageBaseline)
    ->Name("report of 3,000 lines: first page shown/baseline")
    ->Repetitions(Repetitions)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(allPagesOurs)
    ->Name("report of 3,000 lines: all laid out/ours")
    ->Repetitions(Repetitions)
    ->Iterations(1);
BENCHMARK(allPagesBaseline)
    ->Name("report of 3,000 lines: all laid out/baseline")
    ->Repetitions(Repetitions)
    ->Iterations(1);
BENCHMARK(pdfOurs)
    ->Name("report of 3,000 lines: written as PDF/ours")
    ->Repetitions(Repetitions)
    ->Iterations(1);
BENCHMARK(pdfBaseline)
    ->Name("report of 3,000 lines: written as PDF/baseline")
    ->Repetitions(Repetitions)
    ->Iterations(1);
BENCHMARK(pdfSizeOurs)->Name("report of 3,000 lines: size of the PDF/ours")->Iterations(1);
BENCHMARK(pdfSizeBaseline)->Name("report of 3,000 lines: size of the PDF/baseline")->Iterations(1);
BENCHMARK(memoryOurs)->Name("report of 3,000 lines: memory of its pages/ours")->Iterations(1);
BENCHMARK(memoryBaseline)
    ->Name("report of 3,000 lines: memory of its pages/baseline")
    ->Iterations(1);

} // namespace
