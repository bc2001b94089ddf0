// Each dialog's statement to the letter, and each clause in its place.

#include "search/Catalogue.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QFile>
#include <QStringList>

#include <algorithm>

namespace tests {

namespace {

struct Clause {
    QString Field;
    QString Place;
    QString Text;
};

struct Laid {
    QString Statement;
    QList<Clause> Clauses;
};

/// What the file lays down for a dialog.
Laid laidDown(const SearchDeclaration& declaration)
{
    QFile file(QStringLiteral(SOURCE_DIR "/tests/search/statements.txt"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    Laid laid;
    auto line = std::find_if(lines.begin(), lines.end(), [&](const QString& candidate) {
        return candidate.startsWith(s(declaration.Name) + u'|');
    });
    if (line == lines.end()) {
        ADD_FAILURE() << declaration.Name << " is not in the file";
        return laid;
    }
    laid.Statement = line->section(u'|', 1);
    for (++line; !line->isEmpty(); ++line) {
        const QStringList parts = line->split(u'|');
        laid.Clauses.append({parts[0], parts[1], parts[2]});
    }
    return laid;
}

class StatementsTest : public SearchDesk,
                       public ::testing::WithParamInterface<const SearchDeclaration*> {
protected:
    /// What is typed or given: a text of a name, or a number for all else.
    QString valueOf(const QString& field) const
    {
        for (const SearchField& candidate : GetParam()->Fields)
            if (field == QLatin1String(candidate.Name) && candidate.TypesUrdu)
                return s("احمد");
        return s("12");
    }

    /// The statement with the clauses of these fields alone.
    QString expected(const QStringList& fields, SearchWindow& window) const
    {
        QString text = laid_.Statement;
        for (const Clause& clause : laid_.Clauses) {
            if (!fields.contains(clause.Field))
                continue;
            const QString filled =
                QString(clause.Text).replace(u'{' + clause.Field + u'}', valueOf(clause.Field));
            const QString place = u'{' + clause.Place + u'}';
            text.replace(place, filled + place); // the next one of this place stands behind
        }
        for (const Clause& clause : laid_.Clauses)
            text.remove(u'{' + clause.Place + u'}');
        text.remove(s("{ParaInStr}"));
        if (window.DtpFrom()) {
            const QDate to = window.DtpTo()->Value();
            text.replace(s("{DtpFrom}"), window.DtpFrom()->Value().toString(Qt::ISODate));
            text.replace(s("{DtpTo}"), to.toString(Qt::ISODate));
            text.replace(s("{MonthAfterDtpTo}"), to.addMonths(1).toString(Qt::ISODate));
        }
        return text;
    }

    static bool isInput(const QString& field) { return field.startsWith(s("Para")); }

    void fill(SearchWindow& window, const QString& field, const QString& text)
    {
        window.NarrowingField(field.toUtf8()).SetText(text);
        if (window.BtnFilter())
            Click(window, *window.BtnFilter());
    }

    const Laid laid_ = laidDown(*GetParam());
};

INSTANTIATE_TEST_SUITE_P(Of, StatementsTest, ::testing::ValuesIn(AllSearchDialogs()), NameOfDialog);

} // namespace

TEST_P(StatementsTest, WithoutAnyClause)
{
    Look(
        *GetParam(),
        [&](SearchWindow& window) { EXPECT_EQ(window.ListStatement(), expected({}, window)); });
}

TEST_P(StatementsTest, WithEachClauseInItsPlace)
{
    for (const Clause& clause : laid_.Clauses) {
        SCOPED_TRACE(clause.Field.toStdString());
        if (isInput(clause.Field))
            SearchDialog::Shared(*GetParam()).SetParaIn(clause.Field.toUtf8(), s("12"));
        Look(*GetParam(), [&](SearchWindow& window) {
            if (!isInput(clause.Field))
                fill(window, clause.Field, valueOf(clause.Field));
            EXPECT_EQ(window.ListStatement(), expected({clause.Field}, window));
            if (!isInput(clause.Field)) {
                fill(window, clause.Field, s("  ")); // a blank field has no clause
                EXPECT_EQ(window.ListStatement(), expected({}, window));
            }
        });
        if (isInput(clause.Field)) {
            SearchDialog::Shared(*GetParam())
                .SetParaIn(clause.Field.toUtf8(), s(GetParam()->Inputs.front().NoClauseFor));
        }
    }
}

TEST_P(StatementsTest, WithAllClauses)
{
    QStringList fields;
    for (const Clause& clause : laid_.Clauses) {
        fields << clause.Field;
        if (isInput(clause.Field))
            SearchDialog::Shared(*GetParam()).SetParaIn(clause.Field.toUtf8(), s("12"));
    }
    Look(*GetParam(), [&](SearchWindow& window) {
        for (const QString& field : fields)
            if (!isInput(field))
                fill(window, field, valueOf(field));
        EXPECT_EQ(window.ListStatement(), expected(fields, window));
    });
}

/// No field narrows the list but those of the file.
TEST_P(StatementsTest, HaveNoClauseBesides)
{
    QStringList laid;
    for (const Clause& clause : laid_.Clauses)
        laid << clause.Field;
    QStringList described;
    for (const SearchInput& input : GetParam()->Inputs)
        if (input.Kind == SearchInput::Type::Value)
            described << s(input.Name);
    for (const SearchField& field : GetParam()->Fields)
        if (field.Kind != SearchField::Type::Jump)
            described << s(field.Name);
    laid.sort();
    described.sort();
    EXPECT_EQ(described, laid);
}

} // namespace tests
