#include "data/Reading.h"

#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "support/Engines.h"

#include <gtest/gtest.h>

using namespace TradeForms;

namespace {

class ReadInParts : public tests::OnEngine {
protected:
    /// Reads the sector names in parts and runs another statement between two parts.
    QStringList readAll(Reading& reading, int rows)
    {
        while (!reading.ReadOn(rows))
            connection_->Execute("select * from Staff");
        Recordset whole = reading.Take();
        QStringList names;
        for (; !whole.Eof(); whole.MoveNext())
            names.append(whole.Value("SectorName").toString());
        return names;
    }

    const Statement sectors_{QStringLiteral("select * from Sectors order by SectorID")};
    const QStringList names_{QStringLiteral("سیکٹر الف"), QStringLiteral("سیکٹر ب"),
                             QStringLiteral("سیکٹر ج")};
};

} // namespace

ON_EACH_ENGINE(ReadInParts);

TEST_P(ReadInParts, GivesTheSameRowsInPartsOfAnySize)
{
    for (const int rows : {1, 2, 3, 4, 100}) {
        Reading reading(sectors_, connection_);
        EXPECT_EQ(readAll(reading, rows), names_) << "in parts of " << rows;
    }
}

TEST_P(ReadInParts, GivesNoMoreRowsAtATimeThanItWasAskedFor)
{
    Reading reading(sectors_, connection_);
    EXPECT_EQ(reading.RowCount(), 0);
    if (isOdbc()) { // where there is no reading in parts
        EXPECT_TRUE(reading.ReadOn(1));
        EXPECT_EQ(reading.RowCount(), 3);
        return;
    }
    EXPECT_FALSE(reading.ReadOn(1));
    EXPECT_EQ(reading.RowCount(), 1);
    EXPECT_FALSE(reading.ReadOn(2));
    EXPECT_EQ(reading.RowCount(), 3);
    EXPECT_TRUE(reading.ReadOn(1)) << "the end is found when it is read on";
    EXPECT_EQ(reading.RowCount(), 3);
}

TEST_P(ReadInParts, OfNoRowsKnowsTheColumns)
{
    Reading reading(Statement(QStringLiteral("select * from Sectors where SectorID = 99")),
                    connection_);
    EXPECT_TRUE(reading.ReadOn(10));
    const Recordset none = reading.Take();
    EXPECT_EQ(none.RecordCount(), 0);
    EXPECT_EQ(none.FieldName(1), QStringLiteral("SectorName"));
}

TEST_P(ReadInParts, WhatWasTakenCanBeReadAnewAndNotChanged)
{
    Reading reading(sectors_, connection_);
    while (!reading.ReadOn(2)) {
    }
    Recordset whole = reading.Take();
    connection_->Execute("delete from Sectors where SectorID = 2");
    EXPECT_EQ(whole.RecordCount(), 3);
    whole.Requery();
    EXPECT_EQ(whole.RecordCount(), 2);
    EXPECT_THROW(whole.Delete(), Failure);
}

TEST_P(ReadInParts, AFailureStandsAmongTheErrors)
{
    const Statement nowhere(QStringLiteral("select * from Nowhere"));
    EXPECT_THROW(
        {
            Reading reading(nowhere, connection_);
            reading.ReadOn(1);
        },
        ProviderFailure);
    EXPECT_EQ(connection_->Errors().Count(), 1);
}

TEST_P(ReadInParts, TheWorkGrowsWithTheRows)
{
    Reading reading(sectors_, connection_);
    EXPECT_EQ(reading.Work(), 0);
    reading.ReadOn(1);
    const qint64 first = reading.Work();
    reading.ReadOn(1);
    if (isOdbc()) {
        EXPECT_EQ(reading.Work(), 0) << "a server does not tell";
        return;
    }
    EXPECT_GT(first, 0);
    EXPECT_GT(reading.Work(), first);
}
