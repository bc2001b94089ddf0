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

/// What a report is when it is laid out: later changes of it do not count.
struct ReportState {
    ReportDeclaration Declaration;
    std::shared_ptr<Recordset> Rows;
    QStringList Parameters;
    QString Title;
    QDateTime Printed;
    QString User;
};

/// Lays a report's sections out on pages: forward only, a row at a time, with a look at the one
/// after it.
///
/// A row is placed together with the headers before and the footers after it that keep together.
/// What does not fit goes to the next page, below the headers that are repeated there.
class Paginator {
public:
    /// Raises Failure where the rows are closed.
    explicit Paginator(ReportState state);
    ~Paginator();
    Paginator(const Paginator&) = delete;
    Paginator& operator=(const Paginator&) = delete;

    const ReportState& State() const { return state_; }

    /// The pages that are finished. References to them stay good.
    const std::deque<Page>& Pages() const { return pages_; }
    bool AtEnd() const { return atEnd_; }
    /// Lays out the next row and what belongs to it. Raises Failure; what was laid out stays.
    void Step();

private:
    /// A section that is laid out for itself, from its own left top.
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
    void begin();
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
    void placeKept(const QList<Band>& bands);
    void placeBlock(const Block& block);
    void placeBand(const Band& band);
    void placeParts(const Band& band);
    void append(const Band& band);
    bool isPlacedHere(const ReportSection& section) const;
    void fillCounts();

    ReportState state_;
    ReportRows rows_;
    RowValues now_;    ///< the row that is being laid out
    RowValues placed_; ///< the last one that has found its place

    std::deque<Page> pages_;
    /// A run of a finished page that waits for the count of all.
    struct Counting {
        int Page;
        qsizetype Primitive;
    };
    QList<Counting> counting_;

    Page page_;
    double y_ = 0;
    double top_ = 0;    ///< where the rows of this page begin
    double bottom_ = 0; ///< where its footer begins
    bool begun_ = false;
    bool rowIsPlaced_ = false;
    bool inGroup_ = false; ///< the header of the group has been placed, and its footer not yet
    bool atEnd_ = false;
};

} // namespace TradeForms
