#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QList>
#include <QPageLayout>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <memory>
#include <variant>

class QIODevice;
class QPainter;

namespace TradeForms {

class Paginator;

// Primitives of a page. Lengths are tenths of a millimetre from the left and top of the paper.

/// One line of text.
struct TextRun {
    QString Text;
    QString Object;   ///< name of the report object
    QRectF Place;     ///< the object's place on the page
    QPointF Origin;   ///< left end of the baseline
    double Width = 0; ///< of the shaped text
    QFont Font;       ///< its size in pixels is tenths of a millimetre
    Qt::Alignment Alignment;
    Qt::LayoutDirection Direction = Qt::RightToLeft;
    QColor Color;
    bool Continues = false; ///< the object's text goes on in the run after this one
    QString PageText;       ///< template of a text with page numbers

    /// The bounding box of the line, from ascent to descent.
    QRectF LineBox() const;
};

struct LineStroke {
    QPointF From;
    QPointF To;
    double Width = 0;
    QColor Color;
};

struct BoxShape {
    QRectF Place;
    double LineWidth = 0; ///< 0 draws no frame
    double Radius = 0;
    QColor Color; ///< of the frame
    QColor Fill;  ///< invalid fills nothing
};

struct PictureShape {
    QRectF Place; ///< fitted into, the proportions kept
    QImage Image;
};

using Primitive = std::variant<TextRun, LineStroke, BoxShape, PictureShape>;

/// A page: its primitives in the order of drawing.
struct Page {
    QList<Primitive> Primitives;

    /// The runs of text, in the order of drawing.
    QList<TextRun> Texts() const;
};

/// A report laid out on pages of paper. Pages are laid out on demand, so the first page of a long
/// report costs no more than that of a short one. Until the last page is laid out, the page count
/// is shown as "…".
///
/// Laying out reads the report's recordset, and raises Failure where that has been closed.
class Document {
public:
    explicit Document(std::unique_ptr<Paginator> paginator);
    ~Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;

    QString Title() const;
    /// Of every page.
    QSizeF PageSize() const;
    /// The paper size and orientation, without margins, for a printer.
    QPageLayout PageLayout() const;

    /// Lays out all pages and counts them; at least 1. Raises Failure.
    int PageCount() const;
    /// Number of pages laid out so far.
    int PagesReady() const;
    /// Whether all pages are laid out.
    bool IsComplete() const;
    /// Lays out pages up to this one, counted from 0; false where there are not so many. Raises
    /// Failure.
    bool HasPage(int page) const;

    /// Lays out pages up to this one. Raises Failure, also where there are not so many.
    const Page& PageAt(int page) const;

    /// Draws a page, its left top corner at the painter's origin, one unit of the painter a tenth
    /// of a millimetre: the same code for screen, printer and PDF. Raises Failure as PageAt does.
    void Paint(QPainter& painter, int page) const;

    /// An occurrence of a searched text.
    struct Match {
        int Page = 0;
        QList<QRectF> Rects; ///< one per line
    };
    /// Finds all occurrences of a text, in page order, case-insensitively. Lays out all pages.
    QList<Match> Find(const QString& text) const;

    /// Writes all pages. Raises Failure with a text for the user where the file cannot be written.
    void WritePdf(const QString& file) const;
    void WritePdf(QIODevice& device) const;

private:
    std::unique_ptr<Paginator> paginator_;
};

} // namespace TradeForms
