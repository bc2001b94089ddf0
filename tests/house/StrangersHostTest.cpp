#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace tests {

namespace {

/// Runs a program and gives what it printed; fails the test where it does not end with 0.
QString output(const QString& program, const QStringList& arguments,
               const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    const bool finished = process.waitForFinished(240'000);
    const QString printed = QString::fromUtf8(process.readAll());
    EXPECT_TRUE(finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        << qPrintable(program + QLatin1Char(' ') + arguments.join(QLatin1Char(' '))) << '\n'
        << qPrintable(printed);
    return printed;
}

} // namespace

TEST(StrangersHost, FindsTheInstalledLibraryAndOpensAForm)
{
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    const QString prefix = folder.filePath(QStringLiteral("prefix"));
    const QString build = folder.filePath(QStringLiteral("build"));
    const QString cmake = QStringLiteral("cmake");
    output(cmake, {QStringLiteral("--install"), QStringLiteral(BINARY_DIR),
                   QStringLiteral("--prefix"), prefix});
    output(cmake, {QStringLiteral("-S"), QStringLiteral(SOURCE_DIR "/tests/stranger"),
                   QStringLiteral("-B"), build, QStringLiteral("-G"), QStringLiteral("Ninja"),
                   QStringLiteral("-DCMAKE_PREFIX_PATH=") + prefix,
                   QStringLiteral("-DCMAKE_CXX_FLAGS=" SANITIZE_FLAGS)});
    output(cmake, {QStringLiteral("--build"), build});

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const QString printed = output(build + QStringLiteral("/host"),
                                   {folder.filePath(QStringLiteral("company.db"))}, environment);
    EXPECT_TRUE(printed.contains(QStringLiteral("open: Gate Pass"))) << qPrintable(printed);
}

} // namespace tests
