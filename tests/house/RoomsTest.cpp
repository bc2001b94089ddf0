#include "house/RoomRules.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>

namespace tests {

namespace {

QStringList sources(const QString& folder)
{
    QStringList found;
    QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder,
                       {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(files.next().mid(int(qstrlen(SOURCE_DIR "/"))));
    return found;
}

} // namespace

TEST(Rooms, NoFileIncludesARoomAboveItsOwn)
{
    const QStringList files = sources(QStringLiteral("src")) + sources(QStringLiteral("app")) +
                              sources(QStringLiteral("sample")) + sources(QStringLiteral("tools"));
    ASSERT_GT(files.size(), 40);
    for (const QString& path : files) {
        QFile file(QStringLiteral(SOURCE_DIR "/") + path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
        const QStringList violations = roomViolations(path, QString::fromUtf8(file.readAll()));
        EXPECT_TRUE(violations.isEmpty()) << qPrintable(violations.join(QLatin1Char('\n')));
    }
}

TEST(Rooms, TheRuleFires)
{
    const auto broken = [](const char* path, const char* content) {
        return !roomViolations(QString::fromLatin1(path), QString::fromLatin1(content)).isEmpty();
    };
    EXPECT_TRUE(broken("src/data/Recordset.cpp", "#include \"controls/Txt.h\"\n"));
    EXPECT_TRUE(broken("src/controls/Txt.cpp", "#include \"data/Numbers.h\"\n"));
    EXPECT_TRUE(broken("src/controls/Txt.cpp", "#include <TradeForms/Connection.h>\n"));
    EXPECT_TRUE(broken("src/search/SearchWindow.cpp", "#include \"frame/VoucherForm.h\"\n"));
    EXPECT_TRUE(broken("src/frame/VoucherForm.cpp", "  #  include \"stock/FrmGatePass.h\"\n"));
    EXPECT_TRUE(broken("src/stock/FrmGatePass.cpp", "#include \"entry/Forms.h\"\n"));
    EXPECT_TRUE(broken("src/host/HostContext.cpp", "#include <TradeForms/Forms.h>\n"));
    EXPECT_TRUE(broken("src/search/SearchWindow.cpp", "#include <TradeForms/Printing.h>\n"));
    EXPECT_TRUE(broken("app/MainWindow.cpp", "#include \"data/Connection.h\"\n"));
    EXPECT_TRUE(broken("sample/Stock.cpp", "#include \"app/Passwords.h\"\n"));
    EXPECT_TRUE(broken("sample/Stock.cpp", "#include \"src/data/Connection.h\"\n"));
    EXPECT_TRUE(broken("tools/backup/main.cpp", "#include \"data/Backup.h\"\n"));
    EXPECT_TRUE(broken("src/data/Numbers.cpp", "#include <QWidget>\n"));
    EXPECT_TRUE(broken("src/data/ado/AdoEngine.cpp", "#include \"data/sqlite/Handle.h\"\n"));
    EXPECT_TRUE(broken("src/data/ado/HostLink.h", "#include \"data/odbc/Server.h\"\n"));
    EXPECT_TRUE(broken("src/data/odbc/Server.cpp", "#include \"data/ado/Variant.h\"\n"));
    EXPECT_TRUE(broken("src/data/odbc/Server.cpp", "#include \"data/sqlite/Adapter.h\"\n"));
    EXPECT_TRUE(broken("src/data/sqlite/Backup.cpp", "#include \"data/odbc/OdbcLink.h\"\n"));
    EXPECT_TRUE(broken("src/data/sqlite/Adapter.cpp", "#include \"data/server/TransactSql.h\"\n"));
    EXPECT_TRUE(broken("src/data/server/TransactSql.h", "#include \"data/odbc/Server.h\"\n"));
    EXPECT_TRUE(broken("src/entry/com/Workplace.cpp", "#include \"stock/FrmGatePass.h\"\n"));
    EXPECT_TRUE(broken("src/entry/Forms.cpp", "#include \"entry/com/Module.h\"\n"));

    EXPECT_FALSE(broken("src/data/Connection.cpp", "#include \"data/odbc/OdbcEngine.h\"\n"));
    EXPECT_FALSE(broken("src/data/ado/HostLink.cpp", "#include \"data/server/TransactSql.h\"\n"));
    EXPECT_FALSE(broken("src/data/odbc/Server.h", "#include \"data/server/TransactSql.h\"\n"));
    EXPECT_FALSE(
        broken("src/data/sqlite/CompanyTables.cpp", "#include \"data/CompanyTables.h\"\n"));
    EXPECT_FALSE(broken("src/frame/VoucherForm.cpp", "#include \"data/Numbers.h\"\n"));
    EXPECT_FALSE(broken("src/entry/Forms.cpp", "#include \"stock/FrmGatePass.h\"\n"));
    EXPECT_FALSE(broken("src/entry/com/FormsObject.h", "#include \"entry/Forms.h\"\n"));
    EXPECT_FALSE(broken("src/entry/com/HostLoop.cpp", "#include \"controls/ModalScope.h\"\n"));
    EXPECT_FALSE(broken("app/MainWindow.cpp", "#include <TradeForms/Forms.h>\n"));
    EXPECT_FALSE(broken("app/Run.cpp", "#include \"sample/Company.h\"\n"));
    EXPECT_FALSE(broken("sample/Stock.cpp", "#include <TradeForms/Connection.h>\n"));
    EXPECT_FALSE(broken("tools/backup/main.cpp", "#include <TradeForms/Backup.h>\n"));
    EXPECT_FALSE(broken("src/data/Connection.h", "#include <TradeForms/Failure.h>\n"));
}

} // namespace tests
