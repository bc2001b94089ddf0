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
    QString Object;   ///< name of the object that it comes from
    QRectF Place;     ///< the object's place on the page
    QPointF Origin;   ///< left end of the base line
    double Width = 0; ///< of the shaped text
    QFont Font;       ///< its size in pixels is tenths of a millimetre
    Qt::Alignment Alignment;
    Qt::LayoutDirection Direction = Qt::RightToLeft;
    QColor Color;
    bool Continues = false; ///< the object's text goes on in the run after this one
    QString PageText;       ///< of a text with page numbers: what it is made from

    /// The line from its ascent to its descent, as far as the text reaches.
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
    double LineWidth = 0; ///< 0 has no frame
    double Radius = 0;
    QColor Color; ///< of the frame
    QColor Fill;  ///< invalid has none
};

struct PictureShape {
    QRectF Place; ///< fitted into, the proportions kept
    QImage Image;
};

using Primitive = std::variant<TextRun, LineStroke, BoxShape, PictureShape>;

/// One sheet: its primitives in the order of drawing.
struct Page {
    QList<Primitive> Primitives;

    /// The runs of text, in the order of drawing.
    QList<TextRun> Texts() const;
};

/// A report laid out on pages of paper. Pages are laid out as they are asked for: the first one
/// costs the same whatever follows it. Until the last one is laid out "page 1 of …" keeps its
/// three points.
///
/// What asks for pages that are not laid out yet reads rows of the report's recordset, and raises
/// Failure where that has been closed meanwhile.
class Document {
public:
    explicit Document(std::unique_ptr<Paginator> paginator);
    ~Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;

    QString Title() const;
    /// Of every page.
    QSizeF PageSize() const;
    /// The same as a sheet and its turn, without margins, for a printer.
    QPageLayout PageLayout() const;

    /// Lays out all pages and counts them; at least 1. Raises Failure.
    int PageCount() const;
    /// How many pages are laid out by now.
    int PagesReady() const;
    /// Whether all pages are laid out, and their count is known.
    bool IsComplete() const;
    /// Lays out pages up to this one, counted from 0; false where there are not so many. Raises
    /// Failure.
    bool HasPage(int page) const;

    /// Lays out pages up to this one. Raises Failure, also where there are not so many.
    const Page& PageAt(int page) const;

    /// Draws a page, its left top corner at the painter's origin, one unit of the painter a tenth
    /// of a millimetre: the same code for screen, printer and PDF. Raises Failure as PageAt does.
    void Paint(QPainter& painter, int page) const;

    /// A place where a searched text stands.
    struct Match {
        int Page = 0;
        QList<QRectF> Rects; ///< one a line
    };
    /// All places of a text, in the order of the pages; case does not count. Lays out all pages.
    QList<Match> Find(const QString& text) const;

    /// Writes all pages. Raises Failure with a text for the user where the file cannot be written.
    void WritePdf(const QString& file) const;
    void WritePdf(QIODevice& device) const;

private:
    std::unique_ptr<Paginator> paginator_;
};

} // namespace TradeForms
