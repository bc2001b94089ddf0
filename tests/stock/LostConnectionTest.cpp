#include "support/CutLine.h"
#include "support/Engines.h"
#include "support/GatePassDesk.h"

namespace tests {

namespace {

/// A gate pass form whose company is accessed through ODBC.
class GatePassOnServer : public GatePassDesk {
protected:
    GatePassOnServer()
    {
        connection = ConnectThrough(EngineKind::Odbc, company);
        HostContext::objCN = connection;
    }
};

QString lost(const QString& reason)
{
    return QStringLiteral("The connection to the database was lost. What stands in the windows "
                          "and was not saved is not in the database. When the server can be "
                          "reached again, start the program anew. (%1)")
        .arg(reason);
}

} // namespace

TEST_F(GatePassOnServer, IsSavedAndOpenedAgain)
{
    Open();
    const int id = Stored();
    EXPECT_EQ(BodyOf(id), QStringList{QStringLiteral("101|3|null|null")});
    OpenStored(id);
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Cell(0, "OutNewProducts"), QStringLiteral("3"));
}

TEST_F(GatePassOnServer, KeepsWhatWasEnteredWhenTheConnectionIsLost)
{
    Open();
    EnterHeader();
    EnterRow(QStringLiteral("101"), QStringLiteral("3"));
    EnterRow(QStringLiteral("104"), QStringLiteral("2"));
    {
        const CutLine cut;
        boxes.Expect(Failed(lost(QString::fromLatin1(CutLine::Reason))));
        Ctrl(Qt::Key_S);
    }
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(FilledRows(), 2);
    EXPECT_EQ(Cell(0, "OutNewProducts"), QStringLiteral("3"));
    EXPECT_EQ(form->Driver.Code.Text(), QStringLiteral("2014"));
    EXPECT_EQ(Count(QStringLiteral("GatePassHeader")), 0);

    // The network is back, but the session is lost: the same message appears again.
    boxes.Expect(Failed(lost(QStringLiteral("It was lost before."))));
    Ctrl(Qt::Key_S);
    EXPECT_EQ(FilledRows(), 2);
    EXPECT_EQ(Count(QStringLiteral("GatePassBody")), 0);
}

} // namespace tests
