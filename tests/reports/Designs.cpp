#include "reports/Designs.h"

#include "data/Connection.h"
#include "reports/ReportText.h"

namespace tests {

namespace {

constexpr double pageMargin = 100;

ReportSection section(SectionKind kind, const char* name, double height)
{
    ReportSection made;
    made.Kind = kind;
    made.Name = s(name);
    made.Height = height;
    return made;
}

ReportObject object(const char* name, double height)
{
    ReportObject made;
    made.Name = s(name);
    made.Place = QRectF(0, 0, 1000, height);
    made.Font = ReportText::Latin(35);
    made.Alignment = Qt::AlignLeft;
    made.Direction = Qt::LeftToRight;
    return made;
}

} // namespace

ReportDeclaration PlainDesign()
{
    // An A5 sheet upright is 1480 by 2100.
    ReportDeclaration declaration{.Name = s("Plain"),
                                  .Title = s("Plain"),
                                  .Paper = QPageSize::A5,
                                  .Margins = QMarginsF(240, pageMargin, 240, 1000)};
    const ReportSource page{ReportSource::From::PageText, s("{Page} of {Pages}"), {}};
    declaration.Sections = {TextSection(SectionKind::PageHeader, "PageHeader", 50, "head"),
                            FieldSection(SectionKind::Details, "Row", 100, ColumnSource("n")),
                            FieldSection(SectionKind::PageFooter, "PageFooter", 50, page)};
    return declaration;
}

ReportSection& SectionOf(ReportDeclaration& declaration, SectionKind kind)
{
    for (ReportSection& section : declaration.Sections)
        if (section.Kind == kind)
            return section;
    ADD_FAILURE() << "no such section";
    return declaration.Sections.first();
}

ReportSection FieldSection(SectionKind kind, const char* name, double height, ReportSource source)
{
    ReportSection made = section(kind, name, height);
    ReportObject field = object(name, height);
    field.Kind = ObjectKind::Field;
    field.Source = std::move(source);
    made.Objects = {field};
    return made;
}

ReportSection TextSection(SectionKind kind, const char* name, double height, const char* text)
{
    ReportSection made = section(kind, name, height);
    ReportObject caption = object(name, height);
    caption.Text = s(text);
    made.Objects = {caption};
    return made;
}

ReportSource ColumnSource(const char* column)
{
    return ReportSource{ReportSource::From::Column, s(column), {}};
}

std::shared_ptr<Recordset> RowsOf(const std::shared_ptr<Connection>& connection,
                                  const QString& statement)
{
    auto rows = std::make_shared<Recordset>();
    rows->Open(Statement(statement), connection);
    return rows;
}

QString Counted(int count, int inGroup)
{
    return QStringLiteral("WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c"
                          " WHERE n < %1) SELECT n, (n - 1) / %2 as g, n * 0.5 as amount FROM c"
                          " WHERE n <= %1 ORDER BY n")
        .arg(count)
        .arg(inGroup);
}

QStringList Shown(const Document& document, int page)
{
    QStringList texts;
    for (const TextRun& run : document.PageAt(page).Texts())
        texts.append(run.Object + s(": ") + run.Text);
    return texts;
}

QList<TextRun> RunsOf(const Document& document, int page, const QString& object)
{
    QList<TextRun> runs;
    for (const TextRun& run : document.PageAt(page).Texts())
        if (run.Object == object)
            runs.append(run);
    return runs;
}

QList<TextRun> RunsOf(const Document& document, const QString& object)
{
    QList<TextRun> runs;
    for (int page = 0; page < document.PageCount(); ++page)
        runs += RunsOf(document, page, object);
    return runs;
}

QString Only(const Document& document, const char* object)
{
    const QList<TextRun> runs = RunsOf(document, s(object));
    if (runs.size() != 1) {
        ADD_FAILURE() << object << " stands " << runs.size() << " times";
        return QString();
    }
    return runs.first().Text;
}

} // namespace tests
