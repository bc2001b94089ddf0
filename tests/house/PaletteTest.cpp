#include <gtest/gtest.h>

#include <QFile>
#include <QMap>
#include <QRegularExpression>

// The reference host has the library's colours, though it cannot include them: both name them
// alike.

namespace tests {

namespace {

/// The colours that a source defines, by the names of their functions.
QMap<QString, QString> colours(const QString& path)
{
    QFile file(QStringLiteral(SOURCE_DIR "/") + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    static const QRegularExpression colour(
        QStringLiteral("^QColor (\\w+)\\(\\)\\n\\{\\n    return QColor\\(([^)]+)\\);"),
        QRegularExpression::MultilineOption);
    QMap<QString, QString> found;
    for (auto match = colour.globalMatch(QString::fromUtf8(file.readAll())); match.hasNext();) {
        const auto one = match.next();
        found.insert(one.captured(1), one.captured(2));
    }
    return found;
}

} // namespace

TEST(Palette, OfTheReferenceHostIsTheLibrarys)
{
    const QMap<QString, QString> library = colours(QStringLiteral("src/controls/Look.cpp"));
    QMap<QString, QString> host = colours(QStringLiteral("app/HostLook.cpp"));
    // The library's marks a frame; the host's is text, and has to be read.
    EXPECT_FALSE(host.take(QStringLiteral("Warning")).isEmpty());
    EXPECT_EQ(host.take(QStringLiteral("GroupBackground")),
              library.value(QStringLiteral("EntryBackground")));
    EXPECT_EQ(host.size(), 7);
    for (auto colour = host.cbegin(); colour != host.cend(); ++colour)
        EXPECT_EQ(colour.value(), library.value(colour.key())) << qPrintable(colour.key());
}

} // namespace tests
