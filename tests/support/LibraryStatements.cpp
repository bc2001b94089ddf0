#include "support/LibraryStatements.h"

#include "data/Failure.h"
#include "data/Statement.h"
#include "search/Catalogue.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace TradeForms;

namespace tests {

namespace {

QString contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

struct Sample {
    const char* Name;
    const char* Value;
};

/// Sample values by the names of places. All sample names of people and goods contain the letter
/// used here.
constexpr Sample ofPlaces[] = {
    {"id", "1"},
    {"ID", "1"},
    {"InsCustomerID", "Kot 1"},
    {"UserNo", "3"},
    {"BranchCode", "1"},
    {"StaffID", "2014"},
    {"EngineNo", "E1"},
    {"ChasisNo", "C1"},
    {"ParaInBranchCode", "1"},
    {"ParaInAreaCode", "Kot"},
    {"TxtID", "2014"},
    {"TxtName", "ا"},
    {"TxtFName", "ا"},
    {"TxtStaffName", "ا"},
    {"TxtDriverName", "ا"},
    {"TxtReceiving", "ا"},
    {"TxtFrenchiser", "ا"},
    {"TxtProductName", "ا"},
    {"TxtAreaCode", "Kot"},
    {"TxtPrevAreaCode", "Kot"},
    {"TxtPrevCardNo", "1"},
    {"TxtBranchCode", "1"},
    {"TxtFilter", "1"},
    {"TxtEngineNo", "E1"},
    {"TxtChasisNo", "C1"},
    {"DtpFrom", "2026-01-01"},
    {"DtpTo", "2026-01-31"},
    {"MonthAfterDtpTo", "2026-02-28"},
    {"month", "2026-01-05"},
    {"date", "2026-01-05"},
};

/// Sample values of {code} by the column that it is compared with.
constexpr Sample ofCodes[] = {
    {"AreaCode", "Kot"}, {"StaffID", "2014"}, {"ProductID", "101"},
    {"BranchCode", "1"}, {"AccountNo", "7"},
};

/// Sample clauses that forms insert into their own statements and into those of dialogs that take a
/// ready clause.
constexpr Sample clauses[] = {
    {"BranchFilter", " and BranchCode=1"},
    {"ParaInStr", " and Fieldworker=1 "},
};

Statement withCode(Statement statement, const QString& text)
{
    static const QRegularExpression compared(s("(\\w+)\\s*=\\s*'?\\{code\\}"));
    const QString column = compared.match(text).captured(1);
    for (const Sample& sample : ofCodes)
        if (column.compare(s(sample.Name), Qt::CaseInsensitive) == 0)
            statement.Bind("code", s(sample.Value));
    return statement;
}

QString filled(Statement statement)
{
    for (const Sample& sample : ofPlaces)
        statement.Bind(sample.Name, s(sample.Value));
    try {
        return statement.Text();
    } catch (const Failure& failure) {
        ADD_FAILURE() << failure.what() << "\n  A place wants a sample value.";
        return QString();
    }
}

/// A clause of a dialog and the place where it is inserted.
struct Clause {
    const char* Place;
    Statement Text;
};

QList<Clause> clausesOf(const SearchDeclaration& description)
{
    QList<Clause> all;
    for (const SearchInput& input : description.Inputs) {
        const bool isReady = input.Kind == SearchInput::Type::ReadyClause;
        const Sample* ready =
            std::find_if(std::begin(clauses), std::end(clauses), [&](const Sample& clause) {
                return qstrcmp(clause.Name, input.Name) == 0;
            });
        if (isReady && ready == std::end(clauses))
            ADD_FAILURE() << input.Name << " wants a sample clause.";
        else
            all.append({input.Place, Statement(isReady ? ready->Value : input.Clause)});
    }
    for (const SearchField& field : description.Fields)
        if (field.Kind != SearchField::Type::Jump)
            all.append({field.Place, Statement(field.Text.constData())});
    return all;
}

} // namespace

QStringList StatementLiterals(const QString& source)
{
    // Matches a comment, a number, a word, a character, a string literal or any other symbol.
    static const QRegularExpression piece(
        s("//[^\\n]*|/\\*.*?\\*/"
          "|\\d[\\w.']*|\\w+|'(?:\\\\.|[^'\\\\])+'|\"((?:\\\\.|[^\"\\\\])*)\"|\\S"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression beginning(s("^\\s*(select|insert|update|delete|exec)\\s"),
                                              QRegularExpression::CaseInsensitiveOption);
    QStringList statements;
    QString text;
    const auto end = [&] {
        if (beginning.match(text).hasMatch())
            statements.append(text);
        text.clear();
    };
    for (auto pieces = piece.globalMatch(source); pieces.hasNext();) {
        const auto found = pieces.next();
        const QString whole = found.captured();
        if (whole.startsWith(u'"'))
            text += found.captured(1).replace(s("\\\""), s("\"")).replace(s("\\\\"), s("\\"));
        else if (!whole.startsWith(s("//")) && !whole.startsWith(s("/*")))
            end();
    }
    end();
    return statements;
}

QStringList StatementLiteralsIn(const QString& folder)
{
    QStringList paths;
    QDirIterator files(folder, {s("*.h"), s("*.cpp")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        paths.append(files.next());
    paths.sort();
    QStringList statements;
    for (const QString& path : paths)
        statements += StatementLiterals(contentOf(path));
    return statements;
}

QStringList WithSampleValues(const QString& statement)
{
    Statement whole = withCode(Statement(statement), statement);
    Statement bare = whole;
    bool takesClauses = false;
    for (const Sample& clause : clauses) {
        takesClauses |= statement.contains(u'{' + s(clause.Name) + u'}');
        whole.Splice(clause.Name, Statement(clause.Value));
        bare.Splice(clause.Name, Statement());
    }
    return takesClauses ? QStringList{filled(whole), filled(bare)} : QStringList{filled(whole)};
}

QStringList StatementsOfDialogs()
{
    QStringList texts;
    for (const SearchDeclaration* description : AllSearchDialogs()) {
        const QList<Clause> all = clausesOf(*description);
        const auto add = [&](const auto& stands) {
            Statement statement(description->Statement.constData());
            for (qsizetype clause = 0; clause < all.size(); ++clause)
                statement.Splice(all[clause].Place,
                                 stands(clause) ? all[clause].Text : Statement());
            texts.append(filled(statement));
        };
        add([](qsizetype) { return false; });
        for (qsizetype one = 0; one < all.size(); ++one)
            add([one](qsizetype clause) { return clause == one; });
        add([](qsizetype) { return true; });
        if (!description->GridDetail.Statement.isEmpty())
            texts.append(filled(Statement(description->GridDetail.Statement.constData())));
        for (const QByteArray& balance : description->LblBalance)
            texts.append(filled(Statement(balance.constData())));
    }
    texts.removeDuplicates();
    return texts;
}

QStringList StatementsOfForms(const QString& sourceDir)
{
    const QDir src(sourceDir + s("/src"));
    QStringList texts;
    for (const QString& room : src.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (room == s("data") || room == s("search"))
            continue;
        for (const QString& statement : StatementLiteralsIn(src.filePath(room)))
            texts += WithSampleValues(statement);
    }
    texts.removeDuplicates();
    return texts;
}

QStringList StatementsToCome(const QString& sourceDir)
{
    QStringList texts;
    for (const QString& line :
         contentOf(sourceDir + s("/tests/data/statements-to-come.sql")).split(u'\n'))
        if (!line.isEmpty() && !line.startsWith(s("--")))
            texts.append(line);
    return texts;
}

QStringList LibraryStatements(const QString& sourceDir)
{
    // Modifying statements come last, because they delete rows that the queries should find.
    QStringList all =
        StatementsOfDialogs() + StatementsOfForms(sourceDir) + StatementsToCome(sourceDir);
    all.removeDuplicates();
    static const QRegularExpression question(s("^\\s*select\\s"),
                                             QRegularExpression::CaseInsensitiveOption);
    std::stable_partition(all.begin(), all.end(), [](const QString& statement) {
        return question.match(statement).hasMatch();
    });
    return all;
}

} // namespace tests
