#include "reports/ReportView.h"

#include "controls/Look.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace TradeForms {

namespace {

const int kGap = 12;      ///< around the pages, in pixels
const int kLineStep = 48; ///< of the arrow keys and the wheel, in pixels
const int kCacheKiB = 96 * 1024;
const int kLargestPictureKiB =
    24 * 1024; ///< larger pages are painted directly, their visible part only
const int kZoomSteps[] = {25, 33, 50, 67, 75, 93, 100, 125, 150, 200, 300, 400};
const int kWheelStep = 120;
const qreal kSameLine =
    12; ///< largest distance of baselines in a line of text, in tenths of a millimetre

int kibOf(const QSize& pixels)
{
    return int(qint64(pixels.width()) * pixels.height() * 4 / 1024);
}

} // namespace

ReportView::ReportView(const QString& name, QWidget* parent)
    : QAbstractScrollArea(parent), Control(static_cast<QWidget&>(*this))
{
    SetName(name, QStringLiteral("Pages of the report"));
    Look::Dress(*this, Look::LatinFont());
    for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()}) {
        Look::Dress(*bar, Look::LatinFont());
        bar->setSingleStep(kLineStep);
    }
    // Pages are laid out from left to right in a right-to-left form, too.
    setLayoutDirection(Qt::LeftToRight);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(2);
    showFocus();
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    pictures_.setMaxCost(kCacheKiB);
}

ReportView::~ReportView() = default;

void ReportView::SetDocument(std::shared_ptr<const Document> document)
{
    if (document)
        document->PageCount(); // lays out all pages: the rows may be closed while they are shown
    document_ = std::move(document);
    hits_.clear();
    hit_ = -1;
    pictures_.clear();
    layOut();
    verticalScrollBar()->setValue(0);
    // Where the page is wider than the view, Urdu begins at the right.
    horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
    viewport()->update();
    notifyChange();
}

// ---- The plane on which the pages lie

qreal ReportView::wholeScale() const
{
    return logicalDpiX() / 254.0;
}

qreal ReportView::scale() const
{
    return wholeScale() * zoom_ / 100;
}

QSize ReportView::pageSize() const
{
    return document_ ? (document_->PageSize() * scale()).toSize() : QSize();
}

int ReportView::PageCount() const
{
    return document_ ? document_->PageCount() : 0;
}

int ReportView::topOf(int index) const
{
    return kGap + index * (pageSize().height() + kGap);
}

/// The page at a vertical position, or the one below it between two pages.
int ReportView::indexAt(int y) const
{
    return std::clamp(y / (pageSize().height() + kGap), 0, std::max(0, PageCount() - 1));
}

QRect ReportView::PageRect(int page) const
{
    const QSize size = pageSize();
    const int room = viewport()->width();
    const bool fits = size.width() + 2 * kGap <= room;
    const int left = fits ? (room - size.width()) / 2 : kGap - horizontalScrollBar()->value();
    return {QPoint(left, topOf(page - 1) - verticalScrollBar()->value()), size};
}

/// The rectangle of a place on a page in the viewport.
QRectF ReportView::onView(int index, const QRectF& place) const
{
    return QRectF(place.topLeft() * scale(), place.size() * scale())
        .translated(PageRect(index + 1).topLeft());
}

void ReportView::layOut()
{
    const QSize room = viewport()->size();
    const QSize size = pageSize();
    const int count = PageCount();
    const int height = count > 0 ? topOf(count) : 0;
    verticalScrollBar()->setRange(0, std::max(0, height - room.height()));
    verticalScrollBar()->setPageStep(std::max(kLineStep, room.height() - kLineStep));
    horizontalScrollBar()->setRange(
        0, count > 0 ? std::max(0, size.width() + 2 * kGap - room.width()) : 0);
    horizontalScrollBar()->setPageStep(room.width());
}

void ReportView::notifyChange()
{
    toldPage_ = Page();
    Fire(OnChange);
}

// ---- Zoom

void ReportView::SetZoom(int percent)
{
    fitsWidth_ = false;
    zoomAbout(percent, viewport()->rect().center());
}

/// Zooms around a point of the view.
void ReportView::zoomAbout(int percent, const QPoint& fixed)
{
    const int zoom = std::clamp(percent, kSmallest, kLargest);
    if (zoom == zoom_ || !document_) {
        zoom_ = zoom;
        notifyChange();
        return;
    }
    const int page = indexAt(verticalScrollBar()->value() + fixed.y()) + 1;
    const QPointF onPage = (fixed - PageRect(page).topLeft()) / scale();
    zoom_ = zoom;
    pictures_.clear();
    layOut();
    const QPoint now = PageRect(page).topLeft() + (onPage * scale()).toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + now.x() - fixed.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + now.y() - fixed.y());
    viewport()->update();
    notifyChange();
}

void ReportView::ZoomIn()
{
    const auto* step = std::upper_bound(std::begin(kZoomSteps), std::end(kZoomSteps), zoom_);
    SetZoom(step == std::end(kZoomSteps) ? kLargest : *step);
}

void ReportView::ZoomOut()
{
    const auto* step = std::lower_bound(std::begin(kZoomSteps), std::end(kZoomSteps), zoom_);
    SetZoom(step == std::begin(kZoomSteps) ? kSmallest : *(step - 1));
}

void ReportView::FitWidth()
{
    fitsWidth_ = true;
    if (!document_)
        return;
    const qreal whole = document_->PageSize().width() * wholeScale();
    zoomAbout(int(std::floor((viewport()->width() - 2 * kGap) / whole * 100)),
              QPoint(viewport()->width() / 2, 0));
}

// ---- Pages

int ReportView::Page() const
{
    if (PageCount() == 0)
        return 0;
    const QScrollBar& bar = *verticalScrollBar();
    if (bar.maximum() > 0 && bar.value() == bar.maximum())
        return PageCount();
    const int last = indexAt(bar.value() + viewport()->height());
    int most = 0;
    int page = indexAt(bar.value()) + 1;
    for (int index = page - 1; index <= last; ++index) {
        const int seen = PageRect(index + 1).intersected(viewport()->rect()).height();
        if (seen > most) {
            most = seen;
            page = index + 1;
        }
    }
    return page;
}

void ReportView::GoToPage(int page)
{
    verticalScrollBar()->setValue(topOf(std::clamp(page, 1, std::max(1, PageCount())) - 1) - kGap);
}

void ReportView::GoToStart()
{
    verticalScrollBar()->setValue(0);
}

void ReportView::GoToEnd()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void ReportView::GoToPageEnd()
{
    verticalScrollBar()->setValue(topOf(Page()) - viewport()->height());
}

void ReportView::ScrollPage(int direction)
{
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(bar.value() + direction * bar.pageStep());
}

QString ReportView::PageText() const
{
    if (PageCount() == 0)
        return {};
    QList<TextRun> runs = document_->PageAt(Page() - 1).Texts();
    std::stable_sort(runs.begin(), runs.end(), [](const TextRun& a, const TextRun& b) {
        return a.Origin.y() < b.Origin.y();
    });
    QStringList lines;
    for (auto line = runs.begin(); line != runs.end();) {
        const auto next = std::find_if(
            line, runs.end(),
            [line](const TextRun& run) { return run.Origin.y() > line->Origin.y() + kSameLine; });
        std::stable_sort(line, next, [](const TextRun& a, const TextRun& b) {
            return a.Origin.x() > b.Origin.x();
        });
        QStringList texts;
        for (; line != next; ++line)
            texts.append(line->Text);
        lines.append(texts.join(u'\t'));
    }
    return lines.join(u'\n');
}

// ---- Search

int ReportView::Search(const QString& words)
{
    hits_.clear();
    hit_ = -1;
    if (document_ && !words.trimmed().isEmpty())
        hits_ = document_->Find(words.trimmed());
    if (!hits_.isEmpty()) {
        const int from = Page() - 1;
        const auto first =
            std::find_if(hits_.begin(), hits_.end(),
                         [from](const Document::Match& hit) { return hit.Page >= from; });
        goToHit(first == hits_.end() ? 0 : int(first - hits_.begin()));
    }
    viewport()->update();
    notifyChange();
    return HitCount();
}

void ReportView::NextHit()
{
    if (!hits_.isEmpty()) {
        goToHit((hit_ + 1) % HitCount());
        notifyChange();
    }
}

void ReportView::PreviousHit()
{
    if (!hits_.isEmpty()) {
        goToHit((hit_ + HitCount() - 1) % HitCount());
        notifyChange();
    }
}

void ReportView::goToHit(int hit)
{
    hit_ = hit;
    const QRect place = onView(hits_[hit].Page, hits_[hit].Rects.value(0)).toAlignedRect();
    const QRect view = viewport()->rect();
    if (place.top() < 0 || place.bottom() > view.bottom()) {
        QScrollBar& bar = *verticalScrollBar();
        bar.setValue(bar.value() + place.center().y() - view.height() / 3);
    }
    if (place.left() < 0 || place.right() > view.right()) {
        QScrollBar& bar = *horizontalScrollBar();
        bar.setValue(bar.value() + place.center().x() - view.width() / 2);
    }
    viewport()->update();
}

// ---- Painting

void ReportView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRect seen = event->rect();
    painter.fillRect(seen, Look::PageSurround());
    if (PageCount() == 0)
        return;
    const int last = indexAt(verticalScrollBar()->value() + seen.bottom());
    for (int index = indexAt(verticalScrollBar()->value() + seen.top()); index <= last; ++index) {
        const QRect place = PageRect(index + 1);
        if (place.adjusted(-1, -1, 3, 3).intersects(seen)) {
            painter.fillRect(place.translated(2, 2), Look::PageSurround().darker(125));
            paintPage(painter, index);
            paintHits(painter, index);
            painter.setPen(Look::PageSurround().darker(140));
            painter.drawRect(place.adjusted(-1, -1, 0, 0));
        }
    }
}

void ReportView::paintPage(QPainter& painter, int index)
{
    const QRect place = PageRect(index + 1);
    if (const QPixmap* whole = picture(index)) {
        painter.drawPixmap(place.topLeft(), *whole);
        return;
    }
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.fillRect(place, Qt::white);
    painter.translate(place.topLeft());
    painter.scale(scale(), scale());
    document_->Paint(painter, index);
    painter.restore();
}

/// The cached picture of a page, or null where it is too large for the cache.
const QPixmap* ReportView::picture(int index)
{
    // The pixel density depends on the screen.
    const QPixmap* found = pictures_.object(index);
    if (found && found->devicePixelRatio() == devicePixelRatioF())
        return found;
    const QSize pixels = (QSizeF(pageSize()) * devicePixelRatioF()).toSize();
    if (kibOf(pixels) > kLargestPictureKiB)
        return nullptr;
    auto made = std::make_unique<QPixmap>(pixels);
    made->setDevicePixelRatio(devicePixelRatioF());
    made->fill(Qt::white);
    QPainter painter(made.get());
    painter.scale(scale(), scale());
    document_->Paint(painter, index);
    painter.end();
    const QPixmap* kept = made.get();
    pictures_.insert(index, made.release(), std::max(1, kibOf(pixels)));
    return kept;
}

void ReportView::paintHits(QPainter& painter, int index)
{
    // Multiplied, so that black text stays black.
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const auto before = [](const Document::Match& hit, int page) { return hit.Page < page; };
    for (auto it = std::lower_bound(hits_.begin(), hits_.end(), index, before);
         it != hits_.end() && it->Page == index; ++it) {
        for (const QRectF& line : it->Rects) {
            painter.fillRect(onView(index, line).adjusted(-2, -1, 2, 1),
                             it - hits_.begin() == hit_ ? Look::CurrentHit() : Look::Hit());
        }
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

// ---- Events

void ReportView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
    if (fitsWidth_)
        FitWidth();
}

void ReportView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    event->accept();
    wheel_ += event->angleDelta().y();
    for (; std::abs(wheel_) >= kWheelStep; wheel_ -= wheel_ > 0 ? kWheelStep : -kWheelStep)
        wheel_ > 0 ? ZoomIn() : ZoomOut();
}

void ReportView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        ScrollPage(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
        return;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void ReportView::scrollContentsBy(int dx, int dy)
{
    viewport()->scroll(dx, dy);
    if (Page() != toldPage_)
        notifyChange();
}

void ReportView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    showFocus();
}

void ReportView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    showFocus();
}

/// The style draws the frame in the colour WindowText.
void ReportView::showFocus()
{
    QPalette framed = Look::Palette();
    framed.setColor(QPalette::WindowText, hasFocus() ? Look::Accent() : Look::Border());
    setPalette(framed);
}

} // namespace TradeForms
