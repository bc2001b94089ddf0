#include "data/TextCompare.h"

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

#include <random>

using namespace TradeForms;

namespace {

bool like(const char* text, const char* pattern)
{
    return LikePattern::Sql(pattern).Matches(text);
}

} // namespace

TEST(TextCompare, IgnoresCaseInEveryScript)
{
    EXPECT_EQ(CompareText("KOT radha", "kot RADHA"), 0);
    EXPECT_EQ(CompareText("ÉCOLE Σ", "école σ"), 0);
    EXPECT_EQ(CompareText("قصور", "قصور"), 0);
    EXPECT_NE(CompareText("قصور", "لاہور"), 0);
    EXPECT_NE(CompareText("resume", "résumé"), 0);
}

TEST(TextCompare, IgnoresBlanksAtTheEndAndOnlyThere)
{
    EXPECT_EQ(CompareText("Kot", "Kot   "), 0);
    EXPECT_EQ(CompareText("", "   "), 0);
    EXPECT_NE(CompareText(" Kot", "Kot"), 0);
    EXPECT_NE(CompareText("K ot", "Kot"), 0);
    EXPECT_EQ(CompareText("قصور ", "قصور"), 0);
}

TEST(TextCompare, OrdersTexts)
{
    EXPECT_LT(CompareText("abc", "ABD"), 0);
    EXPECT_GT(CompareText("b", "ABC"), 0);
    EXPECT_LT(CompareText("ab", "abc"), 0);
    EXPECT_GT(CompareText("zé", "za"), 0);
}

TEST(TextCompare, IsAnOrderAndAgreesWithUnicodeFolding)
{
    const QStringList pool{QStringLiteral("a"), QStringLiteral("A"), QStringLiteral(" "),
                           QStringLiteral("é"), QStringLiteral("É"), QStringLiteral("ق"),
                           QStringLiteral("ß"), QStringLiteral("z"), QStringLiteral("Σ"),
                           QStringLiteral("ς"), QStringLiteral("[")};
    std::mt19937 random(5);
    const auto word = [&] {
        QString made;
        for (int n = int(random() % 5); n > 0; --n)
            made += pool[int(random() % quint32(pool.size()))];
        return made;
    };
    const auto trimmed = [](QString made) {
        while (made.endsWith(u' '))
            made.chop(1);
        return made;
    };
    const auto sign = [](int order) { return (order > 0) - (order < 0); };
    for (int i = 0; i < 20000; ++i) {
        const QString a = word();
        const QString b = word();
        const QString c = word();
        const auto compare = [&](const QString& first, const QString& second) {
            return sign(CompareText(first.toStdString(), second.toStdString()));
        };
        EXPECT_EQ(compare(a, b), sign(trimmed(a).compare(trimmed(b), Qt::CaseInsensitive)))
            << a.toStdString() << "|" << b.toStdString();
        EXPECT_EQ(compare(a, b), -compare(b, a));
        if (compare(a, b) <= 0 && compare(b, c) <= 0)
            EXPECT_LE(compare(a, c), 0);
    }
}

TEST(Like, KnowsRunsAndSingleCharacters)
{
    EXPECT_TRUE(like("Muhammad", "%HAM%"));
    EXPECT_TRUE(like("محمد اسلم", "%اسلم"));
    EXPECT_TRUE(like("محمد", "م_مد"));
    EXPECT_FALSE(like("محمد", "م_"));
    EXPECT_TRUE(like("", "%"));
    EXPECT_FALSE(like("abc", "b%"));
    EXPECT_TRUE(like("abcabc", "%abc"));
    EXPECT_TRUE(like("100%", "100%"));
}

TEST(Like, KnowsClasses)
{
    EXPECT_TRUE(like("Block C", "block [a-c]"));
    EXPECT_FALSE(like("Block D", "block [a-c]"));
    EXPECT_TRUE(like("Block D", "block [^a-c]"));
    EXPECT_TRUE(like("50%", "50[%]"));
    EXPECT_FALSE(like("500", "50[%]"));
    EXPECT_TRUE(like("a-b", "a[-]b"));
    EXPECT_TRUE(like("a]", "a]"));
}

TEST(Like, AClassThatIsNotClosedFitsNothing)
{
    EXPECT_FALSE(like("a[b", "a[b"));
    EXPECT_FALSE(like("", "[%"));
}

TEST(Like, TheTextsOwnTrailingBlanksMayBeLeftOver)
{
    EXPECT_TRUE(like("Kot  ", "kot"));
    EXPECT_FALSE(like("Kot", "kot "));
}

TEST(Like, AnEscapeTakesTheMeaningFromTheNextCharacter)
{
    EXPECT_TRUE(LikePattern::Sql("50!%", U'!').Matches("50%"));
    EXPECT_FALSE(LikePattern::Sql("50!%", U'!').Matches("500"));
}

TEST(Like, TakesLittleTimeOnHardPatterns)
{
    const std::string text(20000, 'a');
    EXPECT_FALSE(like(text.c_str(), "%a%a%a%a%a%a%a%a%a%b"));
}

TEST(Like, ACriterionsPatternTakesStarsAndNothingElse)
{
    EXPECT_TRUE(LikePattern::Criterion("mu*").Matches("MUHAMMAD"));
    EXPECT_TRUE(LikePattern::Criterion("mu%").Matches("Muhammad"));
    EXPECT_FALSE(LikePattern::Criterion("m_h%").Matches("Muhammad"));
    EXPECT_TRUE(LikePattern::Criterion("[a]%").Matches("[a]bc"));
}

TEST(PatIndex, FindsTheFirstPlaceCountedInCharacters)
{
    EXPECT_EQ(LikePattern::Sql("% %").IndexIn("Kot 12 B"), 4);
    EXPECT_EQ(LikePattern::Sql("% %").IndexIn("کوٹ 12"), 4);
    EXPECT_EQ(LikePattern::Sql("% %").IndexIn("Kot12"), 0);
    EXPECT_EQ(LikePattern::Sql("%[0-9]%").IndexIn("Kot 12"), 5);
    EXPECT_EQ(LikePattern::Sql("Kot%").IndexIn("kot 12"), 1);
    EXPECT_EQ(LikePattern::Sql("%12").IndexIn("Kot 12"), 5);
}

TEST(TextParts, AreCountedInCharacters)
{
    EXPECT_EQ(TextLength("کوٹ 12"), 6);
    EXPECT_EQ(ByteOfCharacter("کوٹ 12", 3), 6u);
    EXPECT_EQ(ByteOfCharacter("ab", 5), 2u);
}
