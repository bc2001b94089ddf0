#pragma once

#include "reports/Document.h"
#include "reports/ReportDeclaration.h"
#include "reports/ReportRows.h"

#include <QDateTime>
#include <QStringList>

#include <deque>
#include <memory>
#include <optional>

namespace TradeForms {

class Recordset;

/// A snapshot of a report for its layout: later changes of the report have no effect.
struct ReportState {
    ReportDeclaration Declaration;
    std::shared_ptr<Recordset> Rows;
    QStringList Parameters;
    QString Title;
    QDateTime Printed;
    QString User;
};

/// Lays out a report's sections on pages, row by row, with a lookahead of one row.
///
/// A row is placed together with the headers and footers that must stay with it. A block that does
/// not fit goes to the next page, below the repeated headers.
class Paginator {
public:
    /// Raises Failure where the rows are closed.
    explicit Paginator(ReportState state);
    ~Paginator();
    Paginator(const Paginator&) = delete;
    Paginator& operator=(const Paginator&) = delete;

    const ReportState& State() const { return state_; }

    /// The finished pages. References to them stay valid.
    const std::deque<Page>& Pages() const { return pages_; }
    bool AtEnd() const { return atEnd_; }
    /// Lays out the next row with its group headers and footers. Raises Failure; finished pages are
    /// kept.
    void Step();

private:
    /// A section laid out relative to its own top left corner.
    struct Band {
        const ReportSection* Section = nullptr;
        QList<Primitive> Primitives;
        double Height = 0;
    };
    /// Bands that stay together where they fit on one page.
    using Block = QList<Band>;

    // Sections as bands
    QList<Band> bands(SectionKind kind) const;
    Band band(const ReportSection& section) const;
    void addText(Band& band, const ReportObject& object, const QRectF& place,
                 const QStringList& lines) const;
    static void addShape(Band& band, const ReportObject& object, const QRectF& place);
    QString textOf(const ReportObject& object) const;
    QStringList linesOf(const ReportObject& object) const;
    QString withMakings(const QString& pageText) const;

    // Rows
    void start();
    void placeRow();
    void finish();
    bool groupBegins(int row) const;
    bool groupEnds(int row) const;
    void resetTotals(SectionKind header, SectionKind footer);
    /// Adds the row to the totals of these sections, or of all.
    void addToTotals(std::optional<SectionKind> header = {},
                     std::optional<SectionKind> footer = {});

    // Pages
    void openPage();
    void closePage();
    void nextPage();
    bool fitsNextPage(double height) const;
    void placeTogether(const QList<Band>& bands);
    void placeBlock(const Block& block);
    void placeBand(const Band& band);
    void placeParts(const Band& band);
    void append(const Band& band);
    bool isPlacedHere(const ReportSection& section) const;
    void fillCounts();

    ReportState state_;
    ReportRows rows_;
    RowValues current_;    ///< the row that is being laid out
    RowValues lastPlaced_; ///< the last row that has been placed

    std::deque<Page> pages_;
    /// A run of a finished page that lacks the page count.
    struct PendingCount {
        int Page;
        qsizetype Primitive;
    };
    QList<PendingCount> pendingCounts_;

    Page page_;
    double y_ = 0;
    double top_ = 0;    ///< top of the rows on this page
    double bottom_ = 0; ///< top of the page footer
    bool started_ = false;
    bool rowIsPlaced_ = false;
    bool inGroup_ = false; ///< the header of the group has been placed, and its footer not yet
    bool atEnd_ = false;
};

} // namespace TradeForms
