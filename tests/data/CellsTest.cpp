#include "data/Cells.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

using namespace TradeForms;

namespace {

QDateTime moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
}

QVariant computed(std::string_view text)
{
    return ValueOf(Cell::FromText(text), ColumnKind::Expression);
}

} // namespace

TEST(DateText, IsReadInEachOfItsForms)
{
    for (const char* text : {"2026-03-09", "20260309", "03/09/2026", "2026-03-09 00:00",
                             "20260309 00:00:00", "03/09/2026T00:00:00.000"}) {
        EXPECT_EQ(DateTimeFromText(text), moment(2026, 3, 9)) << text;
        EXPECT_EQ(DateFromText(text), QDate(2026, 3, 9)) << text;
    }
    EXPECT_EQ(DateTimeFromText("2026-03-09 17:45"), moment(2026, 3, 9, 17, 45));
    EXPECT_EQ(DateTimeFromText("2026-03-09T17:45:12"), moment(2026, 3, 9, 17, 45, 12));
}

TEST(DateText, WithALetterInTheDigitsPlaceIsNoDate)
{
    for (const std::string text :
         {"2026-03-09", "20260309", "03/09/2026", "2026-03-09 17:45", "20260309 17:45:12",
          "03/09/2026T17:45:12.5", "2026-03-09 17:45:12.1234567890123"}) {
        ASSERT_TRUE(DateTimeFromText(text).isValid()) << text;
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (!std::isdigit(text[at]))
                continue;
            for (const char letter : {'A', ' ', '+', '-', '/', ':', '\0'}) {
                std::string other = text;
                other[at] = letter;
                EXPECT_FALSE(DateTimeFromText(other).isValid()) << other;
                EXPECT_FALSE(DateFromText(other).isValid()) << other;
                EXPECT_FALSE(IsStoredDate(other)) << other;
                EXPECT_FALSE(IsStoredDateTime(other)) << other;
            }
        }
    }
}

TEST(DateText, MayHaveAFractionOfAnyLength)
{
    for (const char* fraction : {"7", "123", "4294967295", "9999999999", "12345678901234567890"})
        EXPECT_EQ(DateTimeFromText("2026-03-09 17:45:12." + std::string(fraction)),
                  moment(2026, 3, 9, 17, 45, 12))
            << fraction;
}

TEST(DateText, OfNoDayOrNoTimeIsNoDate)
{
    for (const char* text :
         {"", "2026", "2026-02-30", "2026-13-01", "0000-01-01", "2026-03-09 24:00",
          "2026-03-09 17:60", "2026-03-09 17:45:60", "2026-03-09 17", "2026-03-09 17:45:1",
          "2026-03-09x17:45", "2026-03-09 17:45:12,5", "2026-03-09 "})
        EXPECT_FALSE(DateTimeFromText(text).isValid()) << text;
}

TEST(ComputedValue, IsADateWhereItStandsInTheStoredForm)
{
    EXPECT_EQ(computed("2026-03-09"), QVariant(QDate(2026, 3, 9)));
    EXPECT_EQ(computed("2026-03-09 17:45:12"),
              QVariant(QDateTime(QDate(2026, 3, 9), QTime(17, 45, 12))));
}

TEST(ComputedValue, IsTextThatOnlyHasTheSignsOfADate)
{
    for (const char* text : {"Area-12-05", "PKGS-01-31", "Area-12-05 17:45:12",
                             "2026-03-09 AB:45:12", "    -12-05", "-001-12-05"})
        EXPECT_EQ(computed(text), QVariant(QString::fromLatin1(text)));
}
