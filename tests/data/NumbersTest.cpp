#include "data/Numbers.h"

#include "data/Failure.h"

#include <gtest/gtest.h>

#include <QDateTime>

#include <cmath>
#include <limits>
#include <random>

using namespace TradeForms;

namespace {

double val(const char* text)
{
    return Val(QString::fromUtf8(text));
}

std::string general(double number)
{
    return GeneralFormat(number).toStdString();
}

} // namespace

TEST(NumberOf, ANumberThatHasToBeThereIsNoZeroWhereItIsNull)
{
    EXPECT_EQ(NumberOf(QVariant(12.5)), 12.5);
    EXPECT_EQ(NumberOf(QVariant(qlonglong(3))), 3.0);
    try {
        NumberOf(QVariant());
        ADD_FAILURE() << "a null was taken for a number";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Description(), QStringLiteral("Invalid use of Null"));
    }
}

TEST(Val, ReadsTheNumberAtTheStartOfTheText)
{
    EXPECT_EQ(val("12"), 12);
    EXPECT_EQ(val("  12.5 kg"), 12.5);
    EXPECT_EQ(val("-7abc"), -7);
    EXPECT_EQ(val("+3"), 3);
    EXPECT_EQ(val(".5"), 0.5);
    EXPECT_EQ(val("5."), 5);
    EXPECT_EQ(val("1.2.3"), 1.2);
    EXPECT_EQ(val("2e3"), 2000);
    EXPECT_EQ(val("2e"), 2);
    EXPECT_EQ(val("2e+x"), 2);
}

TEST(Val, CountsBlankAndNonNumericTextAsZero)
{
    for (const char* text : {"", "   ", "abc", "-", ".", "-.", "e5", "نقد"})
        EXPECT_EQ(val(text), 0) << text;
}

TEST(Val, FailsOnANumberBeyondADouble)
{
    EXPECT_THROW(val("1e999"), OverflowFailure);
    EXPECT_THROW(val("-1e999"), OverflowFailure);
    EXPECT_EQ(val("1e-999"), 0);
}

TEST(GeneralFormat, ShowsNoTrailingZerosAndNoSeparators)
{
    EXPECT_EQ(general(0), "0");
    EXPECT_EQ(general(-0.0), "0");
    EXPECT_EQ(general(1500), "1500");
    EXPECT_EQ(general(1234567.5), "1234567.5");
    EXPECT_EQ(general(-0.25), "-0.25");
    EXPECT_EQ(general(0.1 + 0.2), "0.3");
    EXPECT_EQ(general(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(general(0.00001), "0.00001");
}

TEST(GeneralFormat, HasNoExponentBelowTenToTheFifteen)
{
    EXPECT_EQ(general(999999999999999.0), "999999999999999");
    EXPECT_EQ(general(999999999999999.9), "1E+15");
    EXPECT_EQ(general(1e15), "1E+15");
    EXPECT_EQ(general(-1.5e20), "-1.5E+20");
    EXPECT_EQ(general(1e100), "1E+100");
}

TEST(GeneralFormat, IsReadBackAsTheSameNumberToFifteenDigits)
{
    std::mt19937_64 random(20260101);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-8, 20);
    for (int i = 0; i < 5000; ++i) {
        const double number = mantissa(random) * std::pow(10.0, exponent(random));
        const QString text = GeneralFormat(number);
        EXPECT_TRUE(IsNumeric(text)) << text.toStdString();
        EXPECT_NEAR(Val(text), number, std::fabs(number) * 1e-14) << text.toStdString();
        EXPECT_EQ(GeneralFormat(Val(text)), text);
    }
}

TEST(IsNumeric, TakesAWholeTrimmedNumberAndNothingElse)
{
    for (const char* text : {"1", " 1 ", "-1.5", "+2", "1e5", ".5", "5.", "007"})
        EXPECT_TRUE(IsNumeric(QString::fromUtf8(text))) << text;
    for (const char* text : {"", " ", "1a", "1 2", "1,000", "--1", "1e", "0x10", "1d5", "۱۲"})
        EXPECT_FALSE(IsNumeric(QString::fromUtf8(text))) << text;
}

TEST(Narrowing, RoundsHalvesToTheEvenNumber)
{
    EXPECT_EQ(ToInt32(2.5), 2);
    EXPECT_EQ(ToInt32(3.5), 4);
    EXPECT_EQ(ToInt32(-2.5), -2);
    EXPECT_EQ(ToInt16(0.5), 0);
    EXPECT_EQ(ToByte(1.5), 2);
}

TEST(Narrowing, FailsWithOverflowOutsideTheType)
{
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_THROW(ToInt16(32767.5), OverflowFailure);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_THROW(ToInt16(-32769), OverflowFailure);
    EXPECT_THROW(ToInt32(2147483648.0), OverflowFailure);
    EXPECT_THROW(ToByte(-1), OverflowFailure);
    EXPECT_THROW(ToByte(256), OverflowFailure);
    EXPECT_THROW(ToInt32(std::numeric_limits<double>::quiet_NaN()), OverflowFailure);
    try {
        ToByte(1000);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Description(), QStringLiteral("Overflow"));
    }
}

TEST(TextOf, ShowsAValueAsAFieldDoes)
{
    EXPECT_EQ(TextOf(QVariant()), QString());
    EXPECT_EQ(TextOf(QVariant(1500.50)), QStringLiteral("1500.5"));
    EXPECT_EQ(TextOf(QVariant(qlonglong(9007199254740993))), QStringLiteral("9007199254740993"));
    EXPECT_EQ(TextOf(QVariant(true)), QStringLiteral("True"));
    EXPECT_EQ(TextOf(QVariant(false)), QStringLiteral("False"));
    EXPECT_EQ(TextOf(QDate(2026, 3, 9)), QStringLiteral("09/03/2026"));
    EXPECT_EQ(TextOf(QStringLiteral("نقد")), QStringLiteral("نقد"));
}

TEST(Case, ProperCaseCapitalisesEachWordAndSmallensTheRest)
{
    EXPECT_EQ(ProperCase(QStringLiteral("kOT rADHA  kishan")), QStringLiteral("Kot Radha  Kishan"));
    EXPECT_EQ(ProperCase(QStringLiteral("a-b c\td")), QStringLiteral("A-b C\tD"));
    EXPECT_EQ(ProperCase(QStringLiteral("قصور")), QStringLiteral("قصور"));
    EXPECT_EQ(UpperCase(QStringLiteral("kot 12a")), QStringLiteral("KOT 12A"));
}
