#include "data/QueryPlans.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "data/sqlite/Adapter.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/TestCompany.h"

#include <gmock/gmock.h>

#include <QFile>

using namespace TradeForms;

namespace {

/// A statement that may read a voucher table from end to end, by what stands in it, and why.
struct Exception {
    const char* Part;
    const char* Reason;
};

constexpr Exception exceptions[] = {
    {"@none@", ""},
};

const char* reasonFor(const QString& statement)
{
    for (const Exception& exception : exceptions) {
        if (statement.contains(QString::fromUtf8(exception.Part)))
            return exception.Reason;
    }
    return nullptr;
}

QStringList libraryStatements()
{
    QFile file(QStringLiteral(SOURCE_DIR "/tests/data/statements.sql"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList read;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (!line.isEmpty() && !line.startsWith(QStringLiteral("--")))
            read.append(line);
    }
    return read;
}

class QueryPlans : public testing::Test {
protected:
    sqlite3* handle() const { return static_cast<SqliteEngine&>(connection_->engine()).Raw(); }

    QStringList scanned(const char* statement) const
    {
        return ScannedVoucherTables(handle(), AdaptStatement(statement).Text);
    }

    TestCompany company_;
    std::shared_ptr<Connection> connection_ = company_.Connect();
};

} // namespace

TEST_F(QueryPlans, NoStatementReadsAVoucherTableFromEndToEndWhereAnIndexCanServe)
{
    int examined = 0;
    for (const QString& statement : libraryStatements()) {
        const AdaptedStatement adapted = AdaptStatement(statement.toUtf8());
        if (adapted.Procedure)
            continue;
        ++examined;
        const QStringList tables = ScannedVoucherTables(handle(), adapted.Text);
        EXPECT_TRUE(tables.isEmpty() || reasonFor(statement))
            << "Scans " << tables.join(u' ').toStdString() << "\n  in " << statement.toStdString();
    }
    EXPECT_GT(examined, 200);
}
