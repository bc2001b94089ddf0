#include "data/Connection.h"
#include "faults/ClerkProcess.h"
#include "faults/StoredPasses.h"

#include <gtest/gtest.h>

#include <QThread>

#include <iostream>
#include <memory>
#include <random>

namespace {

/// How many clerks are killed; TRADEFORMS_KILLS asks for a longer run.
int kills()
{
    const int asked = qEnvironmentVariableIntValue("TRADEFORMS_KILLS");
    return asked > 0 ? asked : 25;
}

unsigned seed()
{
    const unsigned asked = unsigned(qEnvironmentVariableIntValue("TRADEFORMS_SEED"));
    return asked > 0 ? asked : std::random_device()();
}

} // namespace

TEST(Kill, APassThatWasReportedStandsWholeAndNoneIsHalfThere)
{
    const unsigned chosenSeed = seed();
    SCOPED_TRACE("TRADEFORMS_SEED=" + std::to_string(chosenSeed));
    std::mt19937 random(chosenSeed);
    const auto upTo = [&random](int most) {
        return std::uniform_int_distribution<int>(0, most)(random);
    };

    const TestCompany company;
    FillStock(company);
    QList<ClerksWord::Saved> reported;
    for (int kill = 1; kill <= kills(); ++kill) {
        // At times the file is in use by another when the clerk dies, at times it is found as he
        // left it.
        const auto neighbour = kill % 2 == 0 ? company.Connect() : nullptr;
        ClerkProcess clerk(company.File(), 1000 * kill, 1000);
        if (kill % 8 == 0) {
            QThread::msleep(unsigned(upTo(200))); // while he opens the company and his window
        } else {
            ASSERT_TRUE(clerk.WaitFor([](const ClerksWord& word) { return word.IsReady; }));
            clerk.Start();
            const int saved = upTo(3);
            ASSERT_TRUE(clerk.WaitFor(
                [&](const ClerksWord& word) { return word.Reported.size() >= saved; }));
            QThread::usleep(unsigned(upTo(30000)));
        }
        clerk.Kill();
        EXPECT_EQ(clerk.Word().Boxes.join(u'\n').toStdString(), "");
        reported += clerk.Word().Reported;
        ASSERT_EQ(FaultsIn(company, reported), "") << "at kill " << kill;
    }

    ClerkProcess next(company.File(), 1000 * (kills() + 1), 3);
    next.Start();
    EXPECT_TRUE(next.Finish());
    EXPECT_EQ(next.Word().Reported.size(), 3);
    reported += next.Word().Reported;
    EXPECT_EQ(FaultsIn(company, reported), "");
    std::cout << kills() << " clerks killed; " << reported.size() << " passes reported, "
              << CountPasses(company) << " stored\n";
}
