// Runs the fuzz targets on the inputs of the corpus in every build.

#include "fuzz/Targets.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace {

void tryAll(const char* corpus, void (*target)(const std::uint8_t*, std::size_t))
{
    const QDir folder(QStringLiteral(SOURCE_DIR "/tests/fuzz/corpus/") + QLatin1String(corpus));
    const QStringList names = folder.entryList(QDir::Files);
    EXPECT_GE(names.size(), 20);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        EXPECT_NO_THROW(target(reinterpret_cast<const std::uint8_t*>(content.constData()),
                               std::size_t(content.size())));
    }
}

} // namespace

TEST(Corpus, OfTheAdapter)
{
    tryAll("adapter", fuzz::Adapter);
}

TEST(Corpus, OfCriteria)
{
    tryAll("criterion", fuzz::Criterion);
}

TEST(Corpus, OfDates)
{
    tryAll("date", fuzz::Date);
}

TEST(Corpus, OfStatements)
{
    tryAll("statement", fuzz::Statement);
}
