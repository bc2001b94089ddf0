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

/// Pages of a document below each other, as they will be printed. Only what is on the screen is
/// painted. OnChange runs when the zoom, the page in view or the hits of a search change.
///
/// Pages and hits are numbered from 1.
class ReportView : public QAbstractScrollArea, public Control {
    Q_OBJECT
public:
    explicit ReportView(const QString& name = QStringLiteral("CRViewer1"),
                        QWidget* parent = nullptr);
    ~ReportView() override;

    /// Shows a document from its first page; null shows nothing. Raises what laying out all its
    /// pages raises, and shows what it did.
    void SetDocument(std::shared_ptr<const Document> document);
    const std::shared_ptr<const Document>& Shown() const { return document_; }

    /// In percent of the size on paper, kSmallest to kLargest; others are brought in between.
    void SetZoom(int percent);
    int Zoom() const { return zoom_; }
    /// The next step up or down.
    void ZoomIn();
    void ZoomOut();
    /// The page takes the view's whole width, whatever the window's size, until another zoom
    /// is chosen.
    void FitWidth();
    bool FitsWidth() const { return fitsWidth_; }
    static constexpr int kSmallest = 25;
    static constexpr int kLargest = 400;

    int PageCount() const;
    /// The page that takes most of the view; 0 where there is none.
    int Page() const;
    /// Brings the top of a page to the top of the view; a number beyond the ends is the first
    /// or the last page.
    void GoToPage(int page);
    void GoToStart();
    void GoToEnd();
    /// The end of the page in view.
    void GoToPageEnd();
    /// Scrolls by what the view shows at once, forward (1) or back (-1).
    void ScrollPage(int direction);

    /// The words of the page in view: a line of text for each on the paper, read from the right,
    /// with tabs between what stands apart.
    QString PageText() const;

    /// Marks all texts that hold these words, whatever their case, and goes to the first from
    /// the page in view on. Empty words take the marks away. Gives the number of hits.
    int Search(const QString& words);
    /// Goes on to the next or previous hit, round and round.
    void NextHit();
    void PreviousHit();
    int HitCount() const { return int(hits_.size()); }
    /// 0 where there is none.
    int Hit() const { return hit_ + 1; }

    /// Where a page lies in the viewport, in pixels.
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
    /// Pixels for a tenth of a millimetre at 100 percent and as it is shown now.
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
    void tell();
    void showFocus();

    std::shared_ptr<const Document> document_;
    int zoom_ = 100;
    bool fitsWidth_ = false;
    QList<Document::Match> hits_;
    int hit_ = -1;
    int wheel_ = 0; ///< turned with Ctrl, not yet a step
    int toldPage_ = 0;
    QCache<int, QPixmap> pictures_; ///< of pages at the present zoom
};

} // namespace TradeForms
