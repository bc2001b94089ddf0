#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

// Loading the library builds no tables: a constant of a class type at namespace scope is constexpr,
// or is built by the function that first asks for it.

namespace tests {

namespace {

/// The constants at namespace scope that code builds when the library is loaded. Sources are
/// formatted, so that such a declaration begins its line.
QStringList builtAtLoad(QString source)
{
    // What stands in template brackets may hold any sign.
    static const QRegularExpression brackets(QStringLiteral("<[^<>;{}\n]*>"));
    while (source.contains(brackets))
        source.remove(brackets);
    static const QRegularExpression constant(
        QStringLiteral("^(?:(?:static|inline|thread_local) )*const "
                       "(?:\\w+::)*[A-Z]\\w* (\\w+)(?:\\[\\w*\\])?(?: =|[{(;])"),
        QRegularExpression::MultilineOption);
    QStringList found;
    for (auto match = constant.globalMatch(source); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

} // namespace

TEST(Load, BuildsNoConstants)
{
    int read = 0;
    QDirIterator files(QStringLiteral(SOURCE_DIR "/src"),
                       {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        ++read;
        const QStringList built = builtAtLoad(QString::fromUtf8(file.readAll()));
        EXPECT_TRUE(built.isEmpty())
            << qPrintable(file.fileName()) << ": " << qPrintable(built.join(QStringLiteral(", ")));
    }
    EXPECT_GT(read, 100);
}

TEST(Load, TheRuleFires)
{
    EXPECT_EQ(
        builtAtLoad(QStringLiteral(R"cpp(
const SearchDeclaration SchArea{
    .Name = "SchArea",
};
const SearchDeclaration SchSalary =
    salaryList("SchSalary");
static const QList<std::function<void(int)>> steps = {};
inline const QString Name("name");
const Host::Place Places[] = {{}};
)cpp")),
        (QStringList{QStringLiteral("SchArea"), QStringLiteral("SchSalary"),
                     QStringLiteral("steps"), QStringLiteral("Name"), QStringLiteral("Places")}));
    EXPECT_EQ(builtAtLoad(QStringLiteral(R"cpp(
constexpr Caption caption{"a", "b"};
extern const SearchDeclaration SchArea;
const SearchDeclaration& SchStaff();
const QList<int>& all()
{
    static const QList<int> list{1};
    const QString name = text();
}
const int width = 3;
const char* const names[] = {"a"};
)cpp")),
              QStringList());
}

} // namespace tests
