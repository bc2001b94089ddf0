#include "reports/Document.h"

#include "data/Failure.h"
#include "reports/Paginator.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextLayout>

namespace TradeForms {

namespace {

constexpr double tenthsPerInch = 254;
/// Resolution of the PDF: a tenth of a millimetre is nearly five dots.
constexpr int pdfResolution = 1200;

void draw(QPainter& painter, const TextRun& run)
{
    painter.setFont(run.Font);
    painter.setPen(run.Color);
    painter.setLayoutDirection(run.Direction);
    painter.drawText(run.Origin, run.Text);
}

void draw(QPainter& painter, const LineStroke& line)
{
    painter.setPen(QPen(line.Color, line.Width, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(line.From, line.To);
}

void draw(QPainter& painter, const BoxShape& box)
{
    painter.setPen(box.LineWidth > 0 ? QPen(box.Color, box.LineWidth) : QPen(Qt::NoPen));
    painter.setBrush(box.Fill.isValid() ? QBrush(box.Fill) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(box.Place, box.Radius, box.Radius);
}

void draw(QPainter& painter, const PictureShape& picture)
{
    QRectF fitted(QPointF(),
                  QSizeF(picture.Image.size()).scaled(picture.Place.size(), Qt::KeepAspectRatio));
    fitted.moveCenter(picture.Place.center());
    painter.drawImage(fitted, picture.Image);
}

/// The rectangle of a part of a run.
QRectF boxOf(const TextRun& run, int from, int length)
{
    QTextOption option;
    option.setTextDirection(run.Direction);
    QTextLayout layout(run.Text, run.Font);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    // The line's own left end: a right-to-left line without a width begins at its right.
    const double left = line.naturalTextRect().left();
    const double a = line.cursorToX(from) - left;
    const double b = line.cursorToX(from + length) - left;
    QRectF box = run.LineBox();
    box.setLeft(run.Origin.x() + std::min(a, b));
    box.setRight(run.Origin.x() + std::max(a, b));
    return box;
}

/// The runs of one object as one text.
struct Passage {
    QString Text;
    QList<std::pair<int, const TextRun*>> Runs; ///< each with its offset in the text

    QList<QRectF> BoxesOf(int from, int length) const
    {
        QList<QRectF> boxes;
        for (const auto& [begin, run] : Runs) {
            const int first = std::max(from - begin, 0);
            const int last = std::min(from + length - begin, int(run->Text.size()));
            if (first < last)
                boxes.append(boxOf(*run, first, last - first));
        }
        return boxes;
    }
};

QList<Passage> passagesOf(const QList<TextRun>& runs)
{
    QList<Passage> passages;
    bool goesOn = false;
    for (const TextRun& run : runs) {
        if (!goesOn)
            passages.append(Passage());
        else
            passages.last().Text += u' ';
        passages.last().Runs.append({int(passages.last().Text.size()), &run});
        passages.last().Text += run.Text;
        goesOn = run.Continues;
    }
    return passages;
}

} // namespace

QRectF TextRun::LineBox() const
{
    const QFontMetricsF metrics(Font);
    return QRectF(Origin.x(), Origin.y() - metrics.ascent(), Width,
                  metrics.ascent() + metrics.descent());
}

QList<TextRun> Page::Texts() const
{
    QList<TextRun> texts;
    for (const Primitive& primitive : Primitives)
        if (const auto* run = std::get_if<TextRun>(&primitive))
            texts.append(*run);
    return texts;
}

Document::Document(std::unique_ptr<Paginator> paginator) : paginator_(std::move(paginator)) {}
Document::~Document() = default;
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;

QString Document::Title() const
{
    return paginator_->State().Title;
}

QSizeF Document::PageSize() const
{
    return paginator_->State().Declaration.PageSize();
}

QPageLayout Document::PageLayout() const
{
    return paginator_->State().Declaration.PageLayout();
}

int Document::PagesReady() const
{
    return int(paginator_->Pages().size());
}

bool Document::IsComplete() const
{
    return paginator_->AtEnd();
}

bool Document::HasPage(int page) const
{
    while (PagesReady() <= page && !IsComplete())
        paginator_->Step();
    return page >= 0 && page < PagesReady();
}

int Document::PageCount() const
{
    while (!IsComplete())
        paginator_->Step();
    return PagesReady();
}

const Page& Document::PageAt(int page) const
{
    if (!HasPage(page))
        throw Failure(QStringLiteral("The report has no page %1.").arg(page + 1));
    return paginator_->Pages()[std::size_t(page)];
}

void Document::Paint(QPainter& painter, int page) const
{
    const Page& sheet = PageAt(page);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    for (const Primitive& primitive : sheet.Primitives)
        std::visit([&painter](const auto& shape) { draw(painter, shape); }, primitive);
    painter.restore();
}

QList<Document::Match> Document::Find(const QString& text) const
{
    QList<Match> matches;
    if (text.isEmpty())
        return matches;
    for (int page = 0; page < PageCount(); ++page) {
        const QList<TextRun> runs = PageAt(page).Texts();
        for (const Passage& passage : passagesOf(runs)) {
            qsizetype at = passage.Text.indexOf(text, 0, Qt::CaseInsensitive);
            for (; at >= 0; at = passage.Text.indexOf(text, at + text.size(), Qt::CaseInsensitive))
                matches.append({page, passage.BoxesOf(int(at), int(text.size()))});
        }
    }
    return matches;
}

void Document::WritePdf(const QString& file) const
{
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        throw Failure(
            QStringLiteral("The file %1 cannot be written: %2").arg(file, target.errorString()));
    WritePdf(target);
    if (!target.commit())
        throw Failure(
            QStringLiteral("The file %1 cannot be written: %2").arg(file, target.errorString()));
}

void Document::WritePdf(QIODevice& device) const
{
    const int count = PageCount();
    QPdfWriter writer(&device);
    writer.setPageLayout(PageLayout());
    writer.setResolution(pdfResolution);
    writer.setTitle(Title());
    writer.setCreator(QStringLiteral("TradeForms"));
    QPainter painter;
    if (!painter.begin(&writer))
        throw Failure(QStringLiteral("The PDF cannot be written: %1").arg(device.errorString()));
    painter.scale(pdfResolution / tenthsPerInch, pdfResolution / tenthsPerInch);
    for (int page = 0; page < count; ++page) {
        if (page > 0)
            writer.newPage();
        Paint(painter, page);
    }
    painter.end();
}

} // namespace TradeForms
