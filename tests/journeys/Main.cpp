// Plays a day's work through the program, by keyboard alone.
//
// journey [gate-pass|stock] [--pictures FOLDER]

#include "Journeys.h"

#include "Options.h"
#include "Run.h"
#include "sample/Company.h"

#include <QApplication>
#include <QDate>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>

namespace journeys {

QStringList rows(const QString& file, const QString& sql)
{
    sqlite3* database = nullptr;
    sqlite3_open_v2(QFile::encodeName(file).constData(), &database, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_busy_timeout(database, 5000);
    // The company's text columns name it; for what is read here any order will do.
    sqlite3_create_collation(database, "CI", SQLITE_UTF8, nullptr,
                             [](void*, int aSize, const void* a, int bSize, const void* b) {
                                 return qstrcmp(QByteArray(static_cast<const char*>(a), aSize),
                                                QByteArray(static_cast<const char*>(b), bSize));
                             });
    sqlite3_stmt* statement = nullptr;
    QStringList found;
    if (sqlite3_prepare_v2(database, sql.toUtf8().constData(), -1, &statement, nullptr) !=
        SQLITE_OK)
        found.append(QString::fromUtf8(sqlite3_errmsg(database)));
    while (statement && sqlite3_step(statement) == SQLITE_ROW) {
        QStringList cells;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            cells.append(text ? QString::fromUtf8(text) : s("null"));
        }
        found.append(cells.join(QLatin1Char('|')));
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return found;
}

void logIn(Clerk& clerk, const QString& user)
{
    clerk.See(s("LoginWindow"));
    clerk.Enter(user);
    clerk.Enter(Sample::Password());
    clerk.See(s("MainWindow"));
}

void openScreen(Clerk& clerk, const QString& typed, const QString& window)
{
    clerk.See(s("MainWindow"));
    clerk.Replace(typed);
    clerk.Picture(s("menu"));
    clerk.Press(Qt::Key_Return);
    clerk.See(window);
}

} // namespace journeys

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto after = [&arguments](const char* option) {
        const qsizetype at = arguments.indexOf(QLatin1String(option));
        return at < 0 ? QString() : arguments.value(at + 1);
    };

    Host::Options options;
    const QString second = after("--second-clerk");
    QTemporaryDir folder;
    options.Database = second.isEmpty() ? folder.filePath(QStringLiteral("company.db")) : second;
    options.CreateSample = second.isEmpty();
    options.PrintTo = folder.filePath(QStringLiteral("printed"));
    options.Until = QDate::currentDate();

    // The company first: the clerk looks facts up in it before the program is on the screen.
    if (options.CreateSample && Host::CreateSampleCompany(options) != Host::ExitDone)
        return 1;
    journeys::Clerk clerk(after("--pictures"));
    const bool done = clerk.Work(
        [&](journeys::Clerk& it) {
            if (!second.isEmpty())
                journeys::SecondGatePassClerk(it, options.Database);
            else if (arguments.contains(QLatin1String("stock")))
                journeys::StockDay(it, options.Database);
            else
                journeys::GatePassDay(it, options.Database, options.PrintTo);
        },
        [&options] { Host::RunHost(options); });
    if (!done) {
        std::fprintf(stderr, "journey: not finished\n");
        return 1;
    }
    if (second.isEmpty())
        std::puts("journey: done");
    return 0;
}
