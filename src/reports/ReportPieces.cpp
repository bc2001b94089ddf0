#include "reports/ReportPieces.h"

#include "controls/Utf8.h"
#include "data/Numbers.h"
#include "reports/Paper.h"
#include "reports/ReportText.h"

#include <QPainter>

#include <algorithm>

namespace TradeForms::ReportPieces {

namespace {

QFont urdu()
{
    return ReportText::Urdu(Paper::UrduSize);
}
QFont urduBold()
{
    return ReportText::Urdu(Paper::UrduSize, QFont::Bold);
}
QFont latin()
{
    return ReportText::Latin(Paper::LatinSize);
}
QFont latinBold()
{
    return ReportText::Latin(Paper::LatinSize, QFont::Bold);
}
QFont small()
{
    return ReportText::Latin(Paper::SmallSize);
}

ReportObject english(const char* name, const QRectF& place, const QFont& font, const QString& text)
{
    ReportObject object = Text(name, place, font, text);
    object.Direction = Qt::LeftToRight;
    return object;
}

/// The picture in place of a logo that the host has not given.
QImage defaultLogo()
{
    constexpr QSize size(362, 338);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(QPointF(), QSizeF(size)).adjusted(8, 8, -8, -8);
    painter.setPen(QPen(Paper::Muted, 10));
    painter.drawRoundedRect(frame, 40, 40);
    // Three rising bars.
    painter.setPen(Qt::NoPen);
    painter.setBrush(Paper::Muted);
    constexpr int strips = 3;
    constexpr double stripWidth = 54;
    for (int strip = 0; strip < strips; ++strip) {
        const double height = 70.0 + 60.0 * strip;
        painter.drawRect(QRectF(frame.left() + 60 + strip * 86, frame.bottom() - 60 - height,
                                stripWidth, height));
    }
    return image;
}

/// The name of the copy by the first parameter; null without one.
ReportSource::Formula copyName(const QList<Caption>& copies)
{
    return [copies](const ReportValues& values) -> QVariant {
        const QString number = values.Parameter(1).trimmed();
        if (number.isEmpty())
            return QVariant();
        const auto index = qsizetype(Val(number)) - 1;
        if (index < 0 || index >= copies.size())
            return QStringLiteral("%1 %2 · Copy %2").arg(utf8("کاپی"), number);
        const Caption& copy = copies.at(index);
        return QStringLiteral("%1 · %2").arg(utf8(copy.Urdu), utf8(copy.English));
    };
}

ValueFormat formatOf(const ListColumn& column)
{
    switch (column.Kind) {
    case ListColumn::Type::Quantity:
        return ValueFormat::Quantity;
    case ListColumn::Type::Amount:
        return ValueFormat::Amount;
    case ListColumn::Type::Code:
    case ListColumn::Type::Name:
        break;
    }
    return ValueFormat::Plain;
}

ReportObject cell(const ListColumn& column, const QByteArray& name, double top, double height,
                  ReportSource source)
{
    const bool isName = column.Kind == ListColumn::Type::Name;
    ReportObject object = Field(name.constData(), QRectF(column.Left, top, column.Width, height),
                                isName ? urdu() : latin(), std::move(source), formatOf(column));
    if (!isName)
        object.Direction = Qt::LeftToRight;
    object.CanGrow = isName;
    return object;
}

} // namespace

// ---- Single objects

ReportSource Column(const char* name)
{
    return ReportSource{ReportSource::From::Column, utf8(name), {}};
}

ReportSource Total(const char* name)
{
    return ReportSource{ReportSource::From::Total, utf8(name), {}};
}

ReportSource Formula(ReportSource::Formula compute)
{
    return ReportSource{ReportSource::From::Formula, QString(), std::move(compute)};
}

ReportObject Text(const char* name, const QRectF& place, const QFont& font, const QString& text)
{
    ReportObject object;
    object.Name = utf8(name);
    object.Kind = ObjectKind::Text;
    object.Place = place;
    object.Font = font;
    object.Text = text;
    return object;
}

ReportObject Field(const char* name, const QRectF& place, const QFont& font, ReportSource source,
                   ValueFormat format)
{
    ReportObject object;
    object.Name = utf8(name);
    object.Kind = ObjectKind::Field;
    object.Place = place;
    object.Font = font;
    object.Source = std::move(source);
    object.Format = format;
    return object;
}

ReportObject HLine(double top, double left, double right, double width)
{
    ReportObject object;
    object.Name = QStringLiteral("Line");
    object.Kind = ObjectKind::Line;
    object.Place = QRectF(QPointF(left, top), QPointF(right, top));
    object.LineWidth = width;
    return object;
}

// ---- What a report begins and ends with

ReportSection Header(const Caption& title, const QList<Caption>& copies, double width)
{
    constexpr double logoSide = 160;
    constexpr double sides = 400; // left of the name, and right of it
    ReportSection section{.Kind = SectionKind::ReportHeader,
                          .Name = QStringLiteral("ReportHeaderSection1"),
                          .Height = 200};

    ReportObject logo;
    logo.Name = QStringLiteral("PicLogo");
    logo.Kind = ObjectKind::Picture;
    logo.Place = QRectF(width - logoSide, 0, logoSide, logoSide);
    logo.DefaultPicture = defaultLogo();

    ReportObject company = Text("TxtNameUrdu", QRectF(sides, 0, width - 2 * sides, logoSide),
                                ReportText::Urdu(Paper::CompanySize, QFont::Bold), QString());
    company.Alignment = Qt::AlignHCenter;

    ReportObject urduTitle =
        Text("TxtTitleUrdu", QRectF(0, 0, sides, 68),
             ReportText::Urdu(Paper::TitleSize, QFont::Bold), utf8(title.Urdu));
    urduTitle.Alignment = Qt::AlignLeft;
    ReportObject englishTitle =
        english("TxtTitleEnglish", QRectF(0, 66, sides, 36),
                ReportText::Latin(Paper::TitleLatinSize), utf8(title.English));
    englishTitle.Alignment = Qt::AlignLeft;
    englishTitle.Color = Paper::Muted;
    ReportObject copy = Field("FldCopy", QRectF(15, 112, sides - 30, 48),
                              ReportText::Urdu(Paper::CopySize), Formula(copyName(copies)));
    copy.Alignment = Qt::AlignLeft;
    copy.Framed = true;

    section.Objects = {logo, company, urduTitle, englishTitle, copy, HLine(184, 0, width, 4)};
    return section;
}

ReportSection Continuation(const Caption& title, const ReportSource::Formula& key, double width)
{
    ReportSection section{.Kind = SectionKind::PageHeader,
                          .Name = QStringLiteral("PageHeaderSection1"),
                          .Height = 66,
                          .On = ReportSection::Pages::AfterFirst};
    const auto titled = [key](const QString& text) {
        return [key, text](const ReportValues& values) -> QVariant {
            return values.HasRow() ? QString(text + QStringLiteral("  ") + TextOf(key(values)))
                                   : text;
        };
    };
    ReportObject urduTitle = Field("FldTitleAgainUrdu", QRectF(width / 2, 0, width / 2, 56),
                                   urduBold(), Formula(titled(utf8(title.Urdu))));
    ReportObject englishTitle =
        Field("FldTitleAgainEnglish", QRectF(0, 0, width / 2, 56),
              ReportText::Latin(Paper::TitleLatinSize), Formula(titled(utf8(title.English))));
    englishTitle.Alignment = Qt::AlignLeft;
    englishTitle.Direction = Qt::LeftToRight;
    englishTitle.Color = Paper::Muted;
    section.Objects = {urduTitle, englishTitle};
    return section;
}

ReportSection Signatures(const QList<Caption>& signers, double width)
{
    constexpr double line = 130;
    ReportSection section{.Kind = SectionKind::ReportFooter,
                          .Name = QStringLiteral("ReportFooterSignatures"),
                          .Height = 226,
                          .AtBottom = true};
    constexpr double linePart = 0.76;
    const auto count = double(signers.size());
    const double lineWidth = width / count * linePart;
    const double gap = (width - count * lineWidth) / std::max(count - 1, 1.0);
    for (qsizetype signer = 0; signer < signers.size(); ++signer) {
        // The first one signs at the right.
        const double left = width - lineWidth - double(signer) * (lineWidth + gap);
        ReportObject urduName = Text("TxtSigner", QRectF(left, line + 6, lineWidth, 52), urdu(),
                                     utf8(signers.at(signer).Urdu));
        urduName.Alignment = Qt::AlignHCenter;
        ReportObject englishName =
            english("TxtSignerEnglish", QRectF(left, line + 54, lineWidth, 30), small(),
                    utf8(signers.at(signer).English));
        englishName.Alignment = Qt::AlignHCenter;
        englishName.Color = Paper::Muted;
        section.Objects += {HLine(line, left, left + lineWidth), urduName, englishName};
    }
    return section;
}

ReportSection Footer(double width)
{
    ReportSection section{.Kind = SectionKind::PageFooter,
                          .Name = QStringLiteral("PageFooterSection1"),
                          .Height = 50};
    const auto pageText = [](const char* text) {
        return ReportSource{ReportSource::From::PageText, utf8(text), {}};
    };
    ReportObject urduPage =
        Field("FldPageUrdu", QRectF(width / 2, 8, width / 2, 42),
              ReportText::Urdu(Paper::FooterUrduSize), pageText("صفحہ {Page} از {Pages}"));
    ReportObject englishPage =
        Field("FldPage", QRectF(0, 8, width / 2, 42), small(),
              pageText("Page {Page} of {Pages} · printed {Printed} · user {User}"));
    englishPage.Alignment = Qt::AlignLeft;
    englishPage.Direction = Qt::LeftToRight;
    urduPage.Color = englishPage.Color = Paper::Muted;
    section.Objects = {urduPage, englishPage};
    return section;
}

ReportParameter CopyParameter()
{
    return ReportParameter{QStringLiteral("Copy"), true};
}

// ---- A voucher's data

ReportSection Fields(const char* name, const QList<LabelledField>& fields, int inRow, double width)
{
    constexpr double rowHeight = 84;
    constexpr double labelPart = 0.34;
    constexpr double gap = 16;
    const qsizetype rows = (fields.size() + inRow - 1) / inRow;
    ReportSection section{.Kind = SectionKind::ReportHeader,
                          .Name = utf8(name),
                          .Height = double(rows) * rowHeight + 14};
    const double step = width / inRow;
    const double label = step * labelPart;
    for (qsizetype at = 0; at < fields.size(); ++at) {
        const LabelledField& field = fields.at(at);
        const double right = width - double(at % inRow) * step;
        const double top = double(at / inRow) * rowHeight;
        const QByteArray objectName(field.Name);

        ReportObject urduLabel = Text("Lbl" + objectName, QRectF(right - label, top, label, 54),
                                      urdu(), utf8(field.Label.Urdu));
        ReportObject englishLabel =
            english("LblEnglish" + objectName, QRectF(right - label, top + 50, label, 30), small(),
                    utf8(field.Label.English));
        urduLabel.Color = englishLabel.Color = Paper::Muted;
        ReportObject value =
            Field("Fld" + objectName, QRectF(right - step + gap, top, step - label - 2 * gap, 54),
                  field.Urdu ? urduBold() : latinBold(), field.Source, field.Format);
        value.Direction = field.Urdu ? Qt::RightToLeft : Qt::LeftToRight;
        value.CanGrow = field.Urdu;
        section.Objects += {urduLabel, englishLabel, value};
    }
    return section;
}

// ---- A list

ReportSection ListHeads(const QList<ListColumn>& columns, double width)
{
    ReportSection section{.Kind = SectionKind::PageHeader,
                          .Name = QStringLiteral("PageHeaderSection2"),
                          .Height = 100};
    section.Objects.append(HLine(0, 0, width));
    for (const ListColumn& column : columns) {
        const QByteArray name(column.Column);
        const QString own = utf8(column.Head.English);
        ReportObject urduHead = Text("Head" + name, QRectF(column.Left, 4, column.Width, 54),
                                     urdu(), utf8(column.Head.Urdu));
        ReportObject englishHead =
            english("HeadEnglish" + name, QRectF(column.Left, 56, column.Width, 30), small(), own);
        urduHead.Color = englishHead.Color = Paper::Muted;
        section.Objects += {urduHead, englishHead};
    }
    section.Objects.append(HLine(94, 0, width));
    return section;
}

ReportSection ListRow(const QList<ListColumn>& columns, double width)
{
    constexpr double height = 64;
    ReportSection section{
        .Kind = SectionKind::Details, .Name = QStringLiteral("DetailSection1"), .Height = height};
    for (const ListColumn& column : columns)
        section.Objects.append(
            cell(column, QByteArray("Fld") + column.Column, 2, height - 4, Column(column.Column)));
    ReportObject rule = HLine(height, 0, width, 1);
    rule.Color = Paper::Hairline;
    section.Objects.append(rule);
    return section;
}

ReportSection ListTotals(const QList<ListColumn>& columns, double width)
{
    constexpr double height = 66;
    ReportSection section{.Kind = SectionKind::ReportFooter,
                          .Name = QStringLiteral("ReportFooterTotals"),
                          .Height = height + 24};
    double captionLeft = width;
    for (const ListColumn& column : columns) {
        if (!column.Totalled)
            continue;
        const QByteArray name = QByteArray("Total") + column.Column;
        ReportObject total = cell(column, "Fld" + name, 4, height - 8, Total(name.constData()));
        total.Font = latinBold();
        section.Objects.append(total);
        section.Totals.append({utf8(name.constData()), utf8(column.Column)});
        captionLeft = std::min(captionLeft, column.Left);
    }
    ReportObject caption =
        Text("TxtTotal", QRectF(width - 200, 4, 190, height - 8), urduBold(), utf8("کل"));
    ReportObject englishCaption =
        english("TxtTotalEnglish", QRectF(width - 300, 4, 190, height - 8), small(),
                QStringLiteral("Total"));
    englishCaption.Color = Paper::Muted;
    section.Objects += {caption, englishCaption, HLine(height, 0, width)};
    return section;
}

} // namespace TradeForms::ReportPieces
