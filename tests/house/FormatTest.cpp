#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

// Every source looks the same: clang-format 14 with the project's own rules changes nothing.

namespace tests {

namespace {

/// What clang-format would change in these files; empty where it would change nothing.
QString differences(const QStringList& files)
{
    QProcess format;
    format.setProcessChannelMode(QProcess::MergedChannels);
    format.start(QStringLiteral("clang-format-14"),
                 QStringList{QStringLiteral("--dry-run"), QStringLiteral("--Werror"),
                             QStringLiteral("--ferror-limit=20")} +
                     files);
    if (!format.waitForStarted() || !format.waitForFinished(300'000))
        return QStringLiteral("clang-format-14 cannot be run: ./setup installs it");
    const QString told = QString::fromUtf8(format.readAll());
    return format.exitCode() == 0 && told.isEmpty() ? QString() : told + u'.';
}

} // namespace

TEST(Format, IsTheSameInAllSources)
{
    QStringList files;
    for (const char* folder : {"src", "app", "sample", "tools", "tests", "bench"}) {
        QDirIterator found(QStringLiteral(SOURCE_DIR "/") + QLatin1String(folder),
                           {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (found.hasNext())
            files.append(found.next());
    }
    ASSERT_GT(files.size(), 400);
    EXPECT_EQ(differences(files).toStdString(), "");
}

TEST(Format, TheRuleFires)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QFile::copy(QStringLiteral(SOURCE_DIR "/.clang-format"),
                            folder.filePath(QStringLiteral(".clang-format"))));
    QFile file(folder.filePath(QStringLiteral("Crooked.cpp")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("int  twoBlanks();\n");
    file.close();
    EXPECT_NE(differences({file.fileName()}).toStdString(), "");
}

} // namespace tests
