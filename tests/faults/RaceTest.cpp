#include "faults/ClerkProcess.h"
#include "faults/StoredPasses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <vector>

namespace {

/// How many passes each clerk saves; TRADEFORMS_SAVES asks for a longer run.
int saves()
{
    const int asked = qEnvironmentVariableIntValue("TRADEFORMS_SAVES");
    return asked > 0 ? std::min(asked, 1000) : 25;
}

} // namespace

TEST(Race, EightClerksWhoSaveAtOnceLoseAndDoubleNothing)
{
    constexpr int clerks = 8;
    const int each = saves();
    const TestCompany company;
    FillStock(company);

    std::vector<std::unique_ptr<ClerkProcess>> processes;
    for (int clerk = 0; clerk < clerks; ++clerk)
        processes.push_back(
            std::make_unique<ClerkProcess>(company.File(), 1000 * (clerk + 1), each));
    for (const auto& process : processes)
        ASSERT_TRUE(process->WaitFor([](const ClerksWord& word) { return word.IsReady; }));
    for (const auto& process : processes)
        process->Start();

    QList<ClerksWord::Saved> reported;
    int races = 0;
    for (const auto& process : processes) {
        EXPECT_TRUE(process->Finish());
        EXPECT_TRUE(process->Word().IsDone);
        EXPECT_EQ(process->Word().Boxes.join(u'\n').toStdString(), "");
        reported += process->Word().Reported;
        races += process->Word().Races;
    }
    EXPECT_EQ(reported.size(), clerks * each);
    EXPECT_EQ(CountPasses(company), clerks * each);
    EXPECT_EQ(FaultsIn(company, reported), "");
    // They all begin with the same number: at least seven must have been told.
    EXPECT_GE(races, clerks - 1);
    std::cout << clerks << " clerks saved " << reported.size() << " passes; the number was taken "
              << races << " times\n";
}
