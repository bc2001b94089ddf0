#include "house/CaptionRules.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QTableView>
#include <QWidget>

#include <algorithm>

namespace tests {

namespace {

/// Parts of pixels by which a line may stick out unseen.
constexpr qreal tolerance = 0.75;

/// One run of text as a widget paints it, in the widget's own pixels.
struct PaintedText {
    QString Text;
    QRectF Box;   ///< from the top of the line to its bottom
    QRectF Shown; ///< what the painter's clip lets through
};

/// Paints nothing, and writes down the texts.
class TextRecorder : public QPaintEngine {
public:
    TextRecorder() : QPaintEngine(AllFeatures) {}

    QList<PaintedText> Texts;

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    Type type() const override { return User; }
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override
    {
    }

    void drawTextItem(const QPointF& baseline, const QTextItem& item) override
    {
        const QRectF line(baseline.x(), baseline.y() - item.ascent(), item.width(),
                          item.ascent() + item.descent());
        const QTransform toWidget = painter()->deviceTransform();
        const QRectF box = toWidget.mapRect(line);
        const QRectF clip =
            painter()->hasClipping() ? toWidget.mapRect(painter()->clipBoundingRect()) : box;
        // A text that is selected in part is painted in parts, each with a clip of its own.
        for (PaintedText& known : Texts) {
            if (known.Text == item.text() && known.Box == box) {
                known.Shown |= clip & box;
                return;
            }
        }
        Texts.append({item.text(), box, clip & box});
    }
};

class RecordingDevice : public QPaintDevice {
public:
    explicit RecordingDevice(const QSize& size) : size_(size) {}

    QPaintEngine* paintEngine() const override { return &recorder_; }
    const QList<PaintedText>& Texts() const { return recorder_.Texts; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        constexpr int dotsPerInch = 96;
        constexpr double millimetresPerInch = 25.4;
        switch (metric) {
        case PdmWidth:
            return size_.width();
        case PdmHeight:
            return size_.height();
        case PdmWidthMM:
            return qRound(size_.width() * millimetresPerInch / dotsPerInch);
        case PdmHeightMM:
            return qRound(size_.height() * millimetresPerInch / dotsPerInch);
        case PdmNumColors:
            return 0; // more than can be counted
        case PdmDepth:
            return 24;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return dotsPerInch;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default: // the ratio itself
            return 1;
        }
    }

private:
    QSize size_;
    mutable TextRecorder recorder_;
};

QString shown(const QRectF& rect)
{
    return QStringLiteral("%1x%2 at %3,%4")
        .arg(rect.width())
        .arg(rect.height())
        .arg(rect.x())
        .arg(rect.y());
}

/// "Form FrmGatePass / Strip / Txt TxtAreaCode"
QString pathOf(const QWidget& widget)
{
    QStringList path;
    for (const QWidget* part = &widget; part;
         part = part->isWindow() ? nullptr : part->parentWidget()) {
        const QString type = QString::fromLatin1(part->metaObject()->className()).section(u':', -1);
        path.prepend((type + u' ' + part->objectName()).trimmed());
    }
    return path.join(QStringLiteral(" / "));
}

bool reachesOut(const QRectF& inner, const QRectF& outer)
{
    return !outer.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(inner);
}

bool isCells(const QWidget& widget)
{
    const auto* view = qobject_cast<const QAbstractItemView*>(widget.parentWidget());
    return view && !qobject_cast<const QHeaderView*>(view) && view->viewport() == &widget;
}

QList<QWidget*> visibleChildren(const QWidget& widget)
{
    QList<QWidget*> children;
    for (auto* child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (child->isVisible() && !child->isWindow())
            children.append(child);
    return children;
}

class Examiner {
public:
    QStringList Violations;

    void Examine(QWidget& widget)
    {
        examineTexts(widget);
        examineColumns(widget);
        const QList<QWidget*> children = visibleChildren(widget);
        examinePlaces(widget, children);
        for (QWidget* child : children)
            if (!isCells(*child))
                Examine(*child);
    }

private:
    void report(const QWidget& widget, const QString& what)
    {
        Violations.append(pathOf(widget) + QStringLiteral(": ") + what);
    }

    void examineTexts(QWidget& widget)
    {
        RecordingDevice device(widget.size());
        widget.render(&device, QPoint(), QRegion(), QWidget::RenderFlags());
        for (const PaintedText& text : device.Texts()) {
            const QRectF visible = text.Shown & QRectF(widget.rect());
            if (reachesOut(text.Box, visible))
                report(widget, QStringLiteral("the text '%1' takes %2, of which %3 is shown")
                                   .arg(text.Text, shown(text.Box), shown(visible)));
        }
    }

    void examineColumns(const QWidget& widget)
    {
        const auto* table = qobject_cast<const QTableView*>(&widget);
        if (table && table->horizontalHeader()->length() > table->viewport()->width())
            report(widget, QStringLiteral("the columns take %1 pixels, of which %2 are shown")
                               .arg(table->horizontalHeader()->length())
                               .arg(table->viewport()->width()));
    }

    void examinePlaces(const QWidget& parent, const QList<QWidget*>& children)
    {
        for (qsizetype i = 0; i < children.size(); ++i) {
            const QRect place = children[i]->geometry();
            if (reachesOut(place, parent.rect()))
                report(*children[i], QStringLiteral("reaches out of its parent: %1 in %2")
                                         .arg(shown(place), shown(parent.rect())));
            for (qsizetype j = i + 1; j < children.size(); ++j) {
                if (place.intersects(children[j]->geometry()))
                    report(*children[i], QStringLiteral("overlaps %1: %2 and %3")
                                             .arg(pathOf(*children[j]), shown(place),
                                                  shown(children[j]->geometry())));
            }
        }
    }
};

} // namespace

QStringList captionViolations(QWidget& window, const QSize& screen)
{
    Examiner examiner;
    const QSize size = window.frameGeometry().size();
    if (size.width() > screen.width() || size.height() > screen.height())
        examiner.Violations.append(QStringLiteral("%1: the window of %2x%3 does not fit on %4x%5")
                                       .arg(pathOf(window))
                                       .arg(size.width())
                                       .arg(size.height())
                                       .arg(screen.width())
                                       .arg(screen.height()));
    examiner.Examine(window);
    return examiner.Violations;
}

} // namespace tests
