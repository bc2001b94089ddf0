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

// A report as data: its sections and objects. All lengths (positions, margins, lines, type sizes)
// are tenths of a millimetre, from left to right and downwards.

namespace TradeForms {

/// The values available to a field while its section is laid out.
class ReportValues {
public:
    virtual ~ReportValues() = default;

    /// A column of the current row; invalid for a null, and where there is no row. Raises
    /// Failure for a column that the rows do not have.
    virtual QVariant Column(const QString& name) const = 0;
    /// The same as a number; 0 for a null.
    double Number(const QString& name) const { return Column(name).toDouble(); }
    /// The running total of a section, including the current row.
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
        Formula, ///< the value is computed by Compute
        PageText ///< Name is a text with places {Page}, {Pages}, {Printed} and {User}
    };
    using Formula = std::function<QVariant(const ReportValues&)>;

    From Kind = From::Column;
    QString Name = {};
    Formula Compute = {};
};

/// How a value becomes text.
enum class ValueFormat {
    Plain,    ///< as in a field on a screen
    Amount,   ///< 1,234 or 1,234.50, never rounded; aligned by the decimal point
    Quantity, ///< 3 or 1.5; aligned by the decimal point
    Date,     ///< dd/MM/yyyy
    Month     ///< MMM-yyyy
};

enum class ObjectKind { Text, Field, Picture, Line, Box };

/// Colours in the callers' format 0xBBGGRR; -1 is no colour.
constexpr int NoColor = -1;
constexpr int White = 16777215;

/// An object of a section.
struct ReportObject {
    QString Name;
    ObjectKind Kind = ObjectKind::Text;
    /// Relative to the left margin and the top of the section; a line goes from the top left to the
    /// bottom right corner.
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
    bool CanGrow =
        false; ///< wraps into as many lines as needed; otherwise the font is shrunk to fit
    bool Framed = false; ///< a rounded frame round the text, where there is text

    // Picture
    QString Picture;       ///< path; a file that cannot be read shows nothing
    QImage DefaultPicture; ///< embedded; drawn where Picture is empty

    // Line and box
    double LineWidth = 2;
    double Radius = 0;
    int FillColor = NoColor; ///< of a box
};

/// The sum of a column. In group sections it is reset for each group, in page sections for each
/// page, elsewhere never.
struct ReportTotal {
    QString Name;
    QString Column;
};

enum class SectionKind {
    ReportHeader, ///< once, before everything
    PageHeader,   ///< at the top of each page, on the first under the report header
    GroupHeader,  ///< before the first row of a group
    Details,      ///< for each row
    GroupFooter,  ///< after the last row of a group, with the values of that row
    PageFooter,   ///< at the bottom of each page
    ReportFooter  ///< once, after the last row, with the values of that row
};

/// A band of the page. There may be several of a kind, placed one after another.
struct ReportSection {
    enum class Pages { Every, FirstOnly, AfterFirst };

    SectionKind Kind = SectionKind::Details;
    QString Name = {};
    double Height = 0;
    QList<ReportObject> Objects = {}; ///< in the order of drawing
    QList<ReportTotal> Totals = {};
    bool Suppress = false;
    /// Group header: repeated at the top of each page that continues the group.
    bool Repeat = false;
    /// Kept on one page where it fits on one.
    bool KeepTogether = true;
    /// A group header is kept on one page with the row after it, a footer of a group or of the
    /// report with the row before it, where they fit.
    bool KeepWithRows = true;
    /// Report footer: placed at the bottom of its page.
    bool AtBottom = false;
    /// Page header or footer: the pages that have it.
    Pages On = Pages::Every;
};

struct ReportParameter {
    QString Name;
    bool Numeric = false;
};

/// The declaration of a report. A Report is a copy of it that a caller may change.
struct ReportDeclaration {
    QString Name = {};  ///< of the class, CrpGatePassDetail
    QString Title = {}; ///< in English, for the list of print jobs and the PDF's properties
    /// Returns the key of the row's voucher, which follows the title; may be empty.
    ReportSource::Formula Key = {};
    QPageSize::PageSizeId Paper = QPageSize::A4;
    QPageLayout::Orientation Orientation = QPageLayout::Portrait;
    QMarginsF Margins = QMarginsF(100, 100, 100, 100);
    /// The column whose change ends a group; empty where there are no groups.
    QString GroupBy = {};
    QList<ReportParameter> Parameters = {};
    QList<ReportSection> Sections = {};

    /// The paper size and orientation, without the printer's margins.
    QPageLayout PageLayout() const;
    /// The size of the paper: A4 in portrait is 2100 by 2970.
    QSizeF PageSize() const;
    /// The width between the margins.
    double Width() const { return PageSize().width() - Margins.left() - Margins.right(); }
};

} // namespace TradeForms
