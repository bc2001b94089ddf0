// A disk that fails at each write of a save, and of a deletion, in turn.

#include "data/Failure.h"
#include "support/FaultyDisk.h"
#include "support/GatePassDesk.h"
#include "support/Text.h"

#include <QDir>

#include <tuple>

namespace tests {

namespace {

struct WithDisk {
    FaultyDisk disk;
};

using Fault = FaultyDisk::Fault;
using Lasts = FaultyDisk::Lasts;

/// How the disk fails, and after how many pages the log is moved into the file: in each save, or
/// in none of them.
using Case = std::tuple<Fault, Lasts, int>;

std::string nameOf(const testing::TestParamInfo<Case>& info)
{
    const auto& [fault, lasts, pages] = info.param;
    return std::string(fault == Fault::Full ? "Full" : "Error") +
           (lasts == Lasts::Once ? "Once" : "Lasting") + "LogOf" + std::to_string(pages) + "Pages";
}

class WriteError : protected WithDisk,
                   public GatePassDesk,
                   public testing::WithParamInterface<Case> {
protected:
    WriteError()
    {
        connection->Execute(Statement("PRAGMA wal_autocheckpoint={Pages}")
                                .Bind("Pages", std::get<int>(GetParam())));
        company.Run("update StockInBody set Qty = 1e9");
        Open();
    }

    void failAt(int operation)
    {
        disk.FailAt(operation, std::get<Fault>(GetParam()), std::get<Lasts>(GetParam()));
    }

    /// Presses a key and gives the box of a failure that came, or nothing. Questions are answered
    /// as the key is meant.
    QString failureOf(Qt::Key key)
    {
        QStringList failures;
        const auto previous = Modal::SetBoxPresenter([&](QWidget*, const Message& box) {
            if (box.Text == PrintQuestion().Text)
                return MsgAnswer::No;
            if (box.Icon == MsgIcon::Question)
                return MsgAnswer::Yes;
            EXPECT_EQ(box.Icon, MsgIcon::Stop);
            EXPECT_EQ(box.Title, s("Error occured"));
            failures.append(box.Text);
            return MsgAnswer::Ok;
        });
        Ctrl(key);
        Modal::SetBoxPresenter(previous);
        EXPECT_LE(failures.size(), 1) << failures.join(u'\n').toStdString();
        return failures.value(0);
    }

    void expectClearText(const QString& text)
    {
        const bool isClear = text.contains(s("There is no room left on the disk for")) ||
                             text.contains(s("could not be read or written"));
        EXPECT_TRUE(isClear && text.contains(s("test.company"))) << text.toStdString();
    }

    void expectSound() { EXPECT_EQ(company.Scalar("PRAGMA integrity_check"), s("ok")); }
};

} // namespace

TEST_P(WriteError, InASaveIsToldRolledBackAndTheNextSaveStoresWhatWasTyped)
{
    int failures = 0;
    bool isPast = false;
    for (int operation = 1; !isPast; ++operation) {
        SCOPED_TRACE("at operation " + std::to_string(operation));
        const int id = It().TxtGatePassID.Text().toInt();
        const int before = Count(s("GatePassHeader"));
        EnterHeader();
        EnterRow(s("101"), s("3"));
        EnterRow(s("210"), s("1"), s("2"), QString::number(operation));

        failAt(operation);
        const QString failure = failureOf(Qt::Key_S);
        disk.Repair();
        isPast = !disk.HasFailed();
        if (!failure.isEmpty()) {
            ++failures;
            expectClearText(failure);
            EXPECT_FALSE(connection->InTransaction());
            EXPECT_EQ(Count(s("GatePassHeader")), before);
            EXPECT_TRUE(BodyOf(id).isEmpty());
            expectSound();
            EXPECT_EQ(It().FormState(), VoucherForm::State::Edited);
            EXPECT_TRUE(It().BtnSave.IsEnabled());
            EXPECT_TRUE(It().Rows.Redraw());
            EXPECT_EQ(It().Driver.Code.Text(), s("2014"));
            EXPECT_EQ(It().Area.Code.Text(), s("Kot"));
            EXPECT_EQ(FilledRows(), 2);
            EXPECT_EQ(failureOf(Qt::Key_S), QString());
        }
        EXPECT_EQ(It().FormState(), VoucherForm::State::New);
        EXPECT_EQ(Count(s("GatePassHeader")), before + 1);
        EXPECT_EQ(BodyOf(id), QStringList({s("101|3|null|null"), s("210|1|2|%1").arg(operation)}));
        expectSound();
        ASSERT_FALSE(HasFailure());
    }
    // The frames of the header's and the body's pages, and the flush.
    EXPECT_GE(failures, 5);
}

TEST_P(WriteError, InADeletionIsToldRolledBackAndTheNextOneDeletes)
{
    int failures = 0;
    bool isPast = false;
    for (int operation = 1; !isPast; ++operation) {
        SCOPED_TRACE("at operation " + std::to_string(operation));
        const int id = Stored();
        OpenStored(id);
        failAt(operation);
        const QString failure = failureOf(Qt::Key_R);
        disk.Repair();
        isPast = !disk.HasFailed();
        if (!failure.isEmpty()) {
            ++failures;
            expectClearText(failure);
            EXPECT_FALSE(connection->InTransaction());
            EXPECT_EQ(Count(s("GatePassHeader")), 1);
            EXPECT_EQ(BodyOf(id), QStringList({s("101|3|null|null")}));
            expectSound();
            EXPECT_EQ(It().FormState(), VoucherForm::State::Opened);
            EXPECT_EQ(FilledRows(), 1);
            EXPECT_EQ(failureOf(Qt::Key_R), QString());
        }
        EXPECT_EQ(It().FormState(), VoucherForm::State::New);
        EXPECT_EQ(Count(s("GatePassHeader")), 0);
        EXPECT_EQ(Count(s("GatePassBody")), 0);
        expectSound();
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GE(failures, 5);
}

TEST_P(WriteError, LeavesTheClerkFreeToChangeTheVoucherBeforeTheNextSave)
{
    bool isPast = false;
    for (int operation = 1; !isPast; ++operation) {
        SCOPED_TRACE("at operation " + std::to_string(operation));
        const int id = It().TxtGatePassID.Text().toInt();
        EnterHeader();
        EnterRow(s("101"), s("3"));
        EnterRow(s("104"), s("4"));
        EnterRow(s("210"), s("5"));
        failAt(operation);
        const QString failure = failureOf(Qt::Key_S);
        disk.Repair();
        isPast = !disk.HasFailed();
        if (failure.isEmpty())
            continue;
        It().Rows.SetRow(1);
        It().Detail.RemoveRow();
        Press(It(), Qt::Key_Escape);
        EnterRow(s("233"), s("6"));
        EXPECT_EQ(failureOf(Qt::Key_S), QString());
        EXPECT_EQ(BodyOf(id),
                  QStringList({s("101|3|null|null"), s("210|5|null|null"), s("233|6|null|null")}));
        ASSERT_FALSE(HasFailure());
    }
}

TEST_P(WriteError, InTheChangeOfAStoredVoucherLeavesItAsItWas)
{
    const int id = Stored();
    int rows = 1;
    bool isPast = false;
    for (int operation = 1; !isPast; ++operation) {
        SCOPED_TRACE("at operation " + std::to_string(operation));
        const QStringList before = BodyOf(id);
        OpenStored(id);
        Press(It(), Qt::Key_Escape);
        if (rows == 1) {
            EnterRow(s("210"), QString::number(operation));
        } else {
            It().Rows.SetRow(1);
            It().Detail.RemoveRow();
        }
        failAt(operation);
        const QString failure = failureOf(Qt::Key_S);
        disk.Repair();
        isPast = !disk.HasFailed();
        rows = 3 - rows;
        if (!failure.isEmpty()) {
            EXPECT_EQ(BodyOf(id), before);
            EXPECT_EQ(FilledRows(), rows);
            EXPECT_EQ(failureOf(Qt::Key_S), QString());
        }
        EXPECT_EQ(BodyOf(id).size(), rows);
        expectSound();
        ASSERT_FALSE(HasFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(Disk, WriteError,
                         testing::Combine(testing::Values(Fault::Error, Fault::Full),
                                          testing::Values(Lasts::Once, Lasts::UntilRepaired),
                                          testing::Values(1, 1000)),
                         nameOf);

TEST(FailingDisk, LeavesNothingOfACompanyThatCouldNotBeMade)
{
    FaultyDisk disk;
    for (const Fault fault : {Fault::Error, Fault::Full}) {
        // Some hundred operations: each of the first, then one now and then.
        for (int operation = 1;; operation += 1 + operation / 8) {
            SCOPED_TRACE("at operation " + std::to_string(operation));
            const QTemporaryDir folder;
            const QString file = folder.filePath(s("new.company"));
            disk.FailAt(operation, fault, Lasts::UntilRepaired);
            QString failure;
            try {
                Connection::Open(file, Connection::Mode::Create);
            } catch (const ProviderFailure& told) {
                failure = told.Description();
            }
            const bool isPast = !disk.HasFailed();
            disk.Repair();
            if (isPast)
                break;
            if (failure.isEmpty()) {
                // Only what follows the commit has failed: the company is there.
                EXPECT_EQ(Connection::Open(file)->Execute("select * from Staff").RecordCount(), 0);
                continue;
            }
            EXPECT_TRUE(failure.contains(s("new.company"))) << failure.toStdString();
            EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
            EXPECT_NO_THROW(Connection::Open(file, Connection::Mode::Create));
        }
    }
}

} // namespace tests
