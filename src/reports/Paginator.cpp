#include "reports/Paginator.h"

#include "data/Failure.h"
#include "reports/ReportText.h"

#include <QLocale>

#include <algorithm>
#include <type_traits>

namespace TradeForms {

namespace {

/// Tolerance for sums of doubles, in tenths of a millimetre.
constexpr double tolerance = 0.01;

constexpr QLatin1String placePage("{Page}");
constexpr QLatin1String placePages("{Pages}");

QColor colorOf(int number)
{
    if (number == NoColor)
        return QColor();
    return QColor(number & 0xff, (number >> 8) & 0xff, (number >> 16) & 0xff);
}

bool keepsWithNext(const ReportSection& section)
{
    return section.KeepWithRows && section.Kind == SectionKind::GroupHeader;
}

bool keepsWithLast(const ReportSection& section)
{
    return section.KeepWithRows &&
           (section.Kind == SectionKind::GroupFooter || section.Kind == SectionKind::ReportFooter);
}

void moveDown(Primitive& primitive, double by)
{
    std::visit(
        [by](auto& shape) {
            using Shape = std::decay_t<decltype(shape)>;
            if constexpr (std::is_same_v<Shape, LineStroke>) {
                shape.From.ry() += by;
                shape.To.ry() += by;
            } else {
                shape.Place.translate(0, by);
            }
            if constexpr (std::is_same_v<Shape, TextRun>)
                shape.Origin.ry() += by;
        },
        primitive);
}

QRectF boundsOf(const Primitive& primitive)
{
    return std::visit(
        [](const auto& shape) {
            if constexpr (std::is_same_v<std::decay_t<decltype(shape)>, LineStroke>)
                return QRectF(shape.From, shape.To).normalized();
            else
                return shape.Place;
        },
        primitive);
}

bool hasText(const ReportObject& object)
{
    return object.Kind == ObjectKind::Text || object.Kind == ObjectKind::Field;
}

/// The texts of a section that have grown. Everything that begins below one is moved down.
class Growths {
public:
    void Add(const QRectF& place, double by) { growths_.append({place, by + Above(place)}); }

    /// By how much the section grows.
    double Whole() const
    {
        return most([](const QRectF&) { return true; });
    }
    /// By how much a place is pushed down.
    double Above(const QRectF& place) const
    {
        return most(
            [&place](const QRectF& grown) { return place.top() >= grown.bottom() - tolerance; });
    }
    /// By how much a frame grows with what stands in it.
    double Within(const QRectF& frame) const
    {
        return most([&frame](const QRectF& grown) { return frame.contains(grown); });
    }

private:
    struct Growth {
        QRectF Place;
        double By;
    };

    template <class Counts> double most(Counts counts) const
    {
        double by = 0;
        for (const Growth& growth : growths_)
            if (counts(growth.Place))
                by = std::max(by, growth.By);
        return by;
    }

    QList<Growth> growths_;
};

/// A picture scaled to its place on paper, at no more than printer resolution.
QImage pictureFor(const ReportObject& object)
{
    constexpr double pixelsPerTenth = 600 / 254.0;
    const QImage image = object.Picture.isEmpty() ? object.DefaultPicture : QImage(object.Picture);
    const QSize most = (object.Place.size() * pixelsPerTenth).toSize();
    if (image.width() <= most.width() && image.height() <= most.height())
        return image;
    return image.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

Paginator::Paginator(ReportState state)
    : state_(std::move(state)), rows_(state_.Rows), current_(rows_, state_.Parameters),
      lastPlaced_(rows_, state_.Parameters)
{
    for (const ReportSection& section : state_.Declaration.Sections)
        for (const ReportTotal& total : section.Totals)
            current_.Totals.insert(total.Name, 0);
    lastPlaced_.Totals = current_.Totals;
}

Paginator::~Paginator() = default;

void Paginator::Step()
{
    if (!started_)
        start();
    else if (current_.HasRow())
        placeRow();
    else
        finish();
}

// ---- Rows

void Paginator::start()
{
    openPage();
    started_ = true;
}

bool Paginator::groupBegins(int row) const
{
    const QString& column = state_.Declaration.GroupBy;
    return row == 0 ||
           (!column.isEmpty() && rows_.Value(row, column) != rows_.Value(row - 1, column));
}

bool Paginator::groupEnds(int row) const
{
    return row + 1 == rows_.Count() || groupBegins(row + 1);
}

void Paginator::placeRow()
{
    const int row = current_.Row;
    const bool begins = groupBegins(row);
    const bool ends = groupEnds(row);
    if (begins)
        resetTotals(SectionKind::GroupHeader, SectionKind::GroupFooter);
    addToTotals();
    rowIsPlaced_ = false;

    QList<Band> together;
    if (begins)
        together += bands(SectionKind::GroupHeader);
    together += bands(SectionKind::Details);
    if (ends)
        together += bands(SectionKind::GroupFooter);
    if (row + 1 == rows_.Count())
        together += bands(SectionKind::ReportFooter);
    placeTogether(together);
    if (ends)
        inGroup_ = false;
    current_.Row = row + 1;
}

void Paginator::finish()
{
    if (rows_.Count() == 0)
        placeTogether(bands(SectionKind::ReportFooter));
    closePage();
    fillCounts();
    atEnd_ = true;
}

void Paginator::resetTotals(SectionKind header, SectionKind footer)
{
    for (const ReportSection& section : std::as_const(state_.Declaration.Sections)) {
        if (section.Kind != header && section.Kind != footer)
            continue;
        for (const ReportTotal& total : section.Totals)
            current_.Totals[total.Name] = 0;
    }
}

void Paginator::addToTotals(std::optional<SectionKind> header, std::optional<SectionKind> footer)
{
    const bool all = !header;
    for (const ReportSection& section : std::as_const(state_.Declaration.Sections)) {
        if (!all && section.Kind != header && section.Kind != footer)
            continue;
        for (const ReportTotal& total : section.Totals)
            current_.Totals[total.Name] += current_.Number(total.Column);
    }
}

// ---- Sections as bands

bool Paginator::isPlacedHere(const ReportSection& section) const
{
    const bool first = pages_.empty();
    switch (section.On) {
    case ReportSection::Pages::FirstOnly:
        return first;
    case ReportSection::Pages::AfterFirst:
        return !first;
    case ReportSection::Pages::Every:
        break;
    }
    return true;
}

QList<Paginator::Band> Paginator::bands(SectionKind kind) const
{
    QList<Band> found;
    for (const ReportSection& section : state_.Declaration.Sections)
        if (section.Kind == kind && !section.Suppress && isPlacedHere(section))
            found.append(band(section));
    return found;
}

Paginator::Band Paginator::band(const ReportSection& section) const
{
    QHash<const ReportObject*, QStringList> lines;
    Growths growths;
    for (const ReportObject& object : section.Objects) {
        if (object.Suppress || !hasText(object))
            continue;
        const QStringList its = linesOf(object);
        lines.insert(&object, its);
        if (its.size() > 1)
            growths.Add(object.Place, double(its.size() - 1) * ReportText::LinePitch(object.Font));
    }
    Band band{&section, {}, section.Height + growths.Whole()};
    const double left = state_.Declaration.Margins.left();
    for (const ReportObject& object : section.Objects) {
        if (object.Suppress)
            continue;
        const QRectF place = object.Place.translated(left, growths.Above(object.Place));
        if (hasText(object))
            addText(band, object, place, lines.value(&object));
        else
            addShape(band, object, place.adjusted(0, 0, 0, growths.Within(object.Place)));
    }
    return band;
}

void Paginator::addShape(Band& band, const ReportObject& object, const QRectF& place)
{
    switch (object.Kind) {
    case ObjectKind::Picture:
        if (const QImage image = pictureFor(object); !image.isNull())
            band.Primitives.append(PictureShape{place, image});
        break;
    case ObjectKind::Line:
        band.Primitives.append(
            LineStroke{place.topLeft(), place.bottomRight(), object.LineWidth, object.Color});
        break;
    case ObjectKind::Box:
        band.Primitives.append(BoxShape{place, object.LineWidth, object.Radius, object.Color,
                                        colorOf(object.FillColor)});
        break;
    case ObjectKind::Text:
    case ObjectKind::Field:
        break;
    }
}

QString Paginator::withMakings(const QString& pageText) const
{
    QString text = pageText;
    text.replace(QStringLiteral("{Printed}"),
                 QLocale::c().toString(state_.Printed, QStringLiteral("dd/MM/yyyy HH:mm")));
    text.replace(QStringLiteral("{User}"), state_.User);
    return text;
}

QString Paginator::textOf(const ReportObject& object) const
{
    if (object.Kind == ObjectKind::Text)
        return object.Text;
    const ReportSource& source = object.Source;
    switch (source.Kind) {
    case ReportSource::From::Column:
        return ReportText::Of(current_.Column(source.Name), object.Format);
    case ReportSource::From::Total:
        return ReportText::Of(current_.Total(source.Name), object.Format);
    case ReportSource::From::Formula:
        return ReportText::Of(source.Compute(current_), object.Format);
    case ReportSource::From::PageText:
        break;
    }
    return withMakings(source.Name);
}

QStringList Paginator::linesOf(const ReportObject& object) const
{
    const QString text = textOf(object);
    if (text.isEmpty())
        return QStringList();
    if (object.CanGrow)
        return ReportText::Wrap(text, object.Font, object.Place.width());
    return {QString(text).replace(u'\n', u' ')};
}

void Paginator::addText(Band& band, const ReportObject& object, const QRectF& place,
                        const QStringList& lines) const
{
    const double pitch = ReportText::LinePitch(object.Font);
    const QRectF whole = place.adjusted(0, 0, 0, std::max<qsizetype>(lines.size() - 1, 0) * pitch);
    if (object.BackColor != NoColor)
        band.Primitives.append(BoxShape{whole, 0, 0, QColor(), colorOf(object.BackColor)});
    if (lines.isEmpty())
        return;
    TextRun run;
    run.Object = object.Name;
    run.Alignment = object.Alignment;
    run.Direction = object.Direction;
    run.Color = object.Color;
    const bool byPoint =
        object.Format == ValueFormat::Amount || object.Format == ValueFormat::Quantity;
    for (qsizetype line = 0; line < lines.size(); ++line) {
        run.Text = lines.at(line);
        run.Font = object.Font;
        run.Place = place.translated(0, double(line) * pitch);
        run.Continues = line + 1 < lines.size();
        if (byPoint)
            ReportText::SetByPoint(run, object.Format);
        else
            ReportText::Set(run);
        if (object.Source.Kind == ReportSource::From::PageText)
            run.PageText = run.Text;
        band.Primitives.append(run);
    }
    if (object.Framed) {
        const double pad = 0.5 * object.Font.pixelSize();
        band.Primitives.append(
            BoxShape{QRectF(QPointF(run.Origin.x() - pad, whole.top()),
                            QPointF(run.Origin.x() + run.Width + pad, whole.bottom())),
                     object.LineWidth, whole.height() / 2, object.Color, QColor()});
    }
}

// ---- Pages

void Paginator::openPage()
{
    const ReportDeclaration& declaration = state_.Declaration;
    page_ = Page();
    y_ = declaration.Margins.top();
    bottom_ = declaration.PageSize().height() - declaration.Margins.bottom();
    for (const ReportSection& section : declaration.Sections)
        if (section.Kind == SectionKind::PageFooter && !section.Suppress && isPlacedHere(section))
            bottom_ -= section.Height;
    if (pages_.empty())
        for (const Band& header : bands(SectionKind::ReportHeader))
            append(header);
    for (const Band& header : bands(SectionKind::PageHeader))
        append(header);
    if (inGroup_) {
        for (const Band& header : bands(SectionKind::GroupHeader))
            if (header.Section->Repeat)
                append(header);
    }
    top_ = y_;
    if (top_ >= bottom_)
        throw Failure(QStringLiteral("The headers of the report leave no room on its page."));
}

void Paginator::closePage()
{
    // The page footer gets the values of the last row on its page, not of the row that goes to the
    // next page.
    std::swap(current_.Row, lastPlaced_.Row);
    std::swap(current_.Totals, lastPlaced_.Totals);
    y_ = bottom_;
    for (const Band& footer : bands(SectionKind::PageFooter))
        append(footer);
    std::swap(current_.Row, lastPlaced_.Row);
    std::swap(current_.Totals, lastPlaced_.Totals);

    const int number = int(pages_.size()) + 1;
    for (qsizetype at = 0; at < page_.Primitives.size(); ++at) {
        auto* run = std::get_if<TextRun>(&page_.Primitives[at]);
        if (!run || run->PageText.isEmpty())
            continue;
        run->PageText.replace(placePage, QString::number(number));
        if (run->PageText.contains(placePages))
            pendingCounts_.append({number - 1, at});
        run->Text = QString(run->PageText).replace(placePages, QString(QChar(0x2026)));
        ReportText::Set(*run);
    }
    pages_.push_back(std::move(page_));
}

void Paginator::nextPage()
{
    closePage();
    resetTotals(SectionKind::PageHeader, SectionKind::PageFooter);
    if (rowIsPlaced_)
        lastPlaced_.Totals = current_.Totals;
    else
        addToTotals(SectionKind::PageHeader, SectionKind::PageFooter);
    openPage();
}

bool Paginator::fitsNextPage(double height) const
{
    // On a page without rows a block fits no better than on the next page, except on the first
    // page.
    if (y_ <= top_ && !pages_.empty())
        return false;
    const ReportDeclaration& declaration = state_.Declaration;
    double room =
        declaration.PageSize().height() - declaration.Margins.top() - declaration.Margins.bottom();
    for (const ReportSection& section : declaration.Sections) {
        const bool comesAgain =
            section.Kind == SectionKind::PageHeader || section.Kind == SectionKind::PageFooter ||
            (section.Kind == SectionKind::GroupHeader && section.Repeat && inGroup_);
        if (comesAgain && !section.Suppress && section.On != ReportSection::Pages::FirstOnly)
            room -= section.Height;
    }
    return height <= room + tolerance;
}

void Paginator::placeTogether(const QList<Band>& bands)
{
    Block block;
    for (const Band& next : bands) {
        if (!block.isEmpty() && !keepsWithNext(*block.last().Section) &&
            !keepsWithLast(*next.Section)) {
            placeBlock(block);
            block.clear();
        }
        block.append(next);
    }
    placeBlock(block);
}

void Paginator::placeBlock(const Block& block)
{
    double height = 0;
    for (const Band& band : block)
        height += band.Height;
    const bool fits = y_ + height <= bottom_ + tolerance;
    if (!fits && block.size() > 1 && fitsNextPage(height))
        nextPage();
    for (const Band& band : block)
        placeBand(band);
}

void Paginator::placeBand(const Band& band)
{
    if (band.Section->Kind == SectionKind::ReportFooter)
        inGroup_ = false;
    const bool fits = y_ + band.Height <= bottom_ + tolerance;
    if (fits) {
        if (band.Section->AtBottom)
            y_ = bottom_ - band.Height;
        append(band);
    } else if (band.Section->KeepTogether && fitsNextPage(band.Height)) {
        nextPage();
        placeBand(band);
    } else {
        placeParts(band);
    }
    if (band.Section->Kind == SectionKind::GroupHeader)
        inGroup_ = true;
    if (band.Section->Kind == SectionKind::Details) {
        rowIsPlaced_ = true;
        lastPlaced_.Row = current_.Row;
        lastPlaced_.Totals = current_.Totals;
    }
}

void Paginator::placeParts(const Band& band)
{
    Band rest = band;
    while (y_ + rest.Height > bottom_ + tolerance) {
        const double room = bottom_ - y_;
        Band here{band.Section, {}, 0};
        Band later{band.Section, {}, 0};
        double from = rest.Height;
        for (const Primitive& primitive : std::as_const(rest.Primitives)) {
            const bool fits = boundsOf(primitive).bottom() <= room + tolerance;
            (fits ? here : later).Primitives.append(primitive);
            if (!fits)
                from = std::min(from, boundsOf(primitive).top());
        }
        const bool stuck = here.Primitives.isEmpty() && y_ <= top_;
        if (stuck || later.Primitives.isEmpty())
            break;
        append(here);
        for (Primitive& primitive : later.Primitives)
            moveDown(primitive, -from);
        later.Height = rest.Height - from;
        rest = later;
        nextPage();
    }
    append(rest);
}

void Paginator::append(const Band& band)
{
    for (Primitive primitive : band.Primitives) {
        moveDown(primitive, y_);
        page_.Primitives.append(std::move(primitive));
    }
    y_ += band.Height;
}

void Paginator::fillCounts()
{
    const QString count = QString::number(pages_.size());
    for (const PendingCount& counting : std::as_const(pendingCounts_)) {
        auto& run =
            std::get<TextRun>(pages_[std::size_t(counting.Page)].Primitives[counting.Primitive]);
        run.Text = run.PageText.replace(placePages, count);
        ReportText::Set(run);
    }
    pendingCounts_.clear();
}

} // namespace TradeForms
