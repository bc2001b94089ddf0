#pragma once

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QImage>
#include <QList>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVariant>

#include <functional>

// A report as data: what stands where on the paper. One unit of length throughout, for places,
// margins, lines and type: the tenth of a millimetre, from left to right and downwards.

namespace TradeForms {

/// What a field may ask for while its section is laid out.
class ReportValues {
public:
    virtual ~ReportValues() = default;

    /// A column of the current row; invalid for a null, and where there is no row. Raises
    /// Failure for a column that the rows do not have.
    virtual QVariant Column(const QString& name) const = 0;
    /// The same as a number; a null counts 0.
    double Number(const QString& name) const { return Column(name).toDouble(); }
    /// What a section's total has come to, the current row counted.
    virtual double Total(const QString& name) const = 0;
    /// A parameter's value; the first is 1.
    virtual QString Parameter(int index) const = 0;
    virtual bool HasRow() const = 0;
};

/// Where a field takes its value from.
struct ReportSource {
    enum class From {
        Column,  ///< Name is a column of the rows
        Total,   ///< Name is a total of a section
        Formula, ///< Compute tells
        PageText ///< Name is a text with places {Page}, {Pages}, {Printed} and {User}
    };
    using Formula = std::function<QVariant(const ReportValues&)>;

    From Kind = From::Column;
    QString Name = {};
    Formula Compute = {};
};

/// How a value becomes text.
enum class ValueFormat {
    Plain,    ///< as a field on a screen shows it
    Amount,   ///< 1,234 or 1,234.50: no digit is rounded away; stands by its decimal point
    Quantity, ///< 3 or 1.5; stands by its decimal point
    Date,     ///< dd/MM/yyyy
    Month     ///< MMM-yyyy
};

enum class ObjectKind { Text, Field, Picture, Line, Box };

/// Colours are numbers as the callers of a report know them: blue, green, red from the high byte
/// down. -1 is no colour.
constexpr int NoColor = -1;
constexpr int White = 16777215;

/// One thing on the paper. Its section moves it down the page; the rest is its own.
struct ReportObject {
    QString Name;
    ObjectKind Kind = ObjectKind::Text;
    /// From the left margin and the top of its section; a line goes from the one corner to the
    /// other.
    QRectF Place;
    bool Suppress = false;

    // Text and field
    QString Text;                                    ///< of a text
    ReportSource Source;                             ///< of a field
    ValueFormat Format = ValueFormat::Plain;         ///< of a field
    QFont Font;                                      ///< its size in pixels is tenths of a mm
    Qt::Alignment Alignment = Qt::AlignRight;        ///< left, right or centre
    Qt::LayoutDirection Direction = Qt::RightToLeft; ///< of the paragraph
    QColor Color = Qt::black;
    int BackColor = NoColor;
    bool CanGrow = false; ///< wraps into as many lines as it needs; else it shrinks until it fits
    bool Framed = false;  ///< a rounded frame round the text, where there is text

    // Picture
    QString Picture;       ///< location; a file that cannot be read leaves the place empty
    QImage DefaultPicture; ///< embedded; drawn where Picture is empty

    // Line and box
    double LineWidth = 2;
    double Radius = 0;
    int FillColor = NoColor; ///< of a box
};

/// Sums a column over the rows. It begins anew as its section does: in a group's sections with
/// each group, in a page's sections with each page, elsewhere once.
struct ReportTotal {
    QString Name;
    QString Column;
};

enum class SectionKind {
    ReportHeader, ///< once, before everything
    PageHeader,   ///< at the top of each page, on the first under the report header
    GroupHeader,  ///< before the first row of a group
    Details,      ///< for each row
    GroupFooter,  ///< after the last row of a group, whose values it sees
    PageFooter,   ///< at the bottom of each page
    ReportFooter  ///< once, after the last row, whose values it sees
};

/// A band of the page. There may be more than one of a kind; they follow each other.
struct ReportSection {
    enum class Pages { Every, FirstOnly, AfterFirst };

    SectionKind Kind = SectionKind::Details;
    QString Name = {};
    double Height = 0;
    QList<ReportObject> Objects = {}; ///< in the order of drawing
    QList<ReportTotal> Totals = {};
    bool Suppress = false;
    /// Of a group header: comes again at the top of each page on which its group goes on.
    bool Repeat = false;
    /// Not split over two pages where it fits on one.
    bool KeepTogether = true;
    /// Where they fit on one page, a group's header stays with the row after it, a footer of a
    /// group or of the report with what stands before it.
    bool KeepWithRows = true;
    /// Of a report footer: stands at the bottom of its page.
    bool AtBottom = false;
    /// Of a page's header or footer: where it is left out.
    Pages On = Pages::Every;
};

struct ReportParameter {
    QString Name;
    bool Numeric = false;
};

/// One report's design. A Report is made from it and may then be changed by itself.
struct ReportDeclaration {
    QString Name = {};  ///< of the class, CrpGatePassDetail
    QString Title = {}; ///< in English, for the list of print jobs and the PDF's properties
    /// Names the voucher of a row, behind the title; may be empty.
    ReportSource::Formula Key = {};
    QPageSize::PageSizeId Paper = QPageSize::A4;
    QPageLayout::Orientation Orientation = QPageLayout::Portrait;
    QMarginsF Margins = QMarginsF(100, 100, 100, 100);
    /// The column whose change ends a group; empty where there are no groups.
    QString GroupBy = {};
    QList<ReportParameter> Parameters = {};
    QList<ReportSection> Sections = {};

    /// The sheet and its turn, without the printer's own margins.
    QPageLayout PageLayout() const;
    /// A4 upright is 2100 by 2970.
    QSizeF PageSize() const;
    /// Between the margins.
    double Width() const { return PageSize().width() - Margins.left() - Margins.right(); }
};

} // namespace TradeForms
