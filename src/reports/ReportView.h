#pragma once

#include "controls/Control.h"
#include "reports/Document.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QList>
#include <QPixmap>
#include <QString>

#include <memory>

namespace TradeForms {

/// Shows the pages of a document below each other, as they will be printed. Only visible pages are
/// painted. OnChange runs when the zoom, the current page or the hits of a search change.
///
/// Pages and hits are numbered from 1.
class ReportView : public QAbstractScrollArea, public Control {
    Q_OBJECT
public:
    explicit ReportView(const QString& name = QStringLiteral("CRViewer1"),
                        QWidget* parent = nullptr);
    ~ReportView() override;

    /// Shows a document from its first page; null shows nothing. Raises what laying out all its
    /// pages raises; then the view keeps the document it had.
    void SetDocument(std::shared_ptr<const Document> document);
    const std::shared_ptr<const Document>& Shown() const { return document_; }

    /// The zoom in percent of the size on paper, clamped to kSmallest and kLargest.
    void SetZoom(int percent);
    int Zoom() const { return zoom_; }
    /// To the next zoom step up or down.
    void ZoomIn();
    void ZoomOut();
    /// Fits the page to the view's width, also when the window is resized, until another zoom is
    /// chosen.
    void FitWidth();
    bool FitsWidth() const { return fitsWidth_; }
    static constexpr int kSmallest = 25;
    static constexpr int kLargest = 400;

    int PageCount() const;
    /// The page that covers most of the view; 0 without a document.
    int Page() const;
    /// Scrolls to the top of a page; the number is clamped to the existing pages.
    void GoToPage(int page);
    void GoToStart();
    void GoToEnd();
    /// Scrolls to the end of the current page.
    void GoToPageEnd();
    /// Scrolls by the height of the view, forward (1) or back (-1).
    void ScrollPage(int direction);

    /// The text of the current page: its lines from right to left, with tabs between separate
    /// objects.
    QString PageText() const;

    /// Highlights all occurrences of the words, case-insensitively, and goes to the first one from
    /// the current page on. Empty words remove the highlights. Returns the number of hits.
    int Search(const QString& words);
    /// Goes to the next or previous hit, wrapping around.
    void NextHit();
    void PreviousHit();
    int HitCount() const { return int(hits_.size()); }
    /// 0 where there is none.
    int Hit() const { return hit_ + 1; }

    /// The rectangle of a page in the viewport, in pixels.
    QRect PageRect(int page) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// Pixels per tenth of a millimetre at 100 percent, and at the current zoom.
    qreal wholeScale() const;
    qreal scale() const;
    QSize pageSize() const;
    int topOf(int index) const;
    int indexAt(int y) const;
    QRectF onView(int index, const QRectF& place) const;
    void zoomAbout(int percent, const QPoint& fixed);
    void layOut();
    void goToHit(int hit);
    const QPixmap* picture(int index);
    void paintPage(QPainter& painter, int index);
    void paintHits(QPainter& painter, int index);
    void notifyChange();
    void showFocus();

    std::shared_ptr<const Document> document_;
    int zoom_ = 100;
    bool fitsWidth_ = false;
    QList<Document::Match> hits_;
    int hit_ = -1;
    int wheel_ = 0; ///< wheel movement with Ctrl that is not yet a zoom step
    int toldPage_ = 0;
    QCache<int, QPixmap> pictures_; ///< pages painted at the current zoom
};

} // namespace TradeForms
