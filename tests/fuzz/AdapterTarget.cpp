#include "fuzz/Targets.h"

#include "data/Engine.h"
#include "data/Failure.h"
#include "data/Tokens.h"
#include "data/sqlite/Adapter.h"
#include "data/sqlite/CompanyFile.h"
#include "data/sqlite/SqliteEngine.h"

#include <QTemporaryDir>

#include <string>
#include <vector>

namespace fuzz {

using namespace TradeForms;

namespace {

/// A company to prepare statements on; none of them is run.
sqlite3* company()
{
    static const QTemporaryDir folder;
    static const std::unique_ptr<Engine> engine =
        CreateCompanyFile(folder.filePath(QStringLiteral("fuzz.company")));
    return static_cast<SqliteEngine&>(*engine).Raw();
}

/// The literals and quoted names of a text, and what stands between its tokens.
struct Kept {
    std::vector<std::string> Literals;
    std::string Comments;
};

Kept keptOf(const QByteArray& text)
{
    const std::string_view view(text.constData(), std::size_t(text.size()));
    Kept kept;
    std::size_t end = 0;
    for (const Token& token : ReadTokens(view)) {
        if (token.Kind == Token::Type::Literal)
            kept.Literals.emplace_back(token.Text);
        const std::size_t begin = std::size_t(token.Text.data() - view.data());
        for (const char letter : view.substr(end, begin - end))
            if (letter != ' ')
                kept.Comments += letter;
        end = begin + token.Text.size();
    }
    return kept;
}

/// One with digits may be a date, and be given its stored form.
bool mayBeDate(const std::string& literal)
{
    return literal.find_first_of("0123456789") != std::string::npos;
}

/// Whether all literals come again, in their order: but for an alias that became a name, and a
/// date that was given its stored form.
bool comeAgain(const std::vector<std::string>& before, const std::vector<std::string>& after,
               const std::string& text)
{
    const bool mayHoldAlias = text.find('=') != std::string::npos;
    std::size_t next = 0;
    for (const std::string& literal : before) {
        if (mayBeDate(literal))
            continue;
        std::size_t found = next;
        while (found < after.size() && after[found] != literal)
            ++found;
        if (found < after.size())
            next = found + 1;
        else if (!mayHoldAlias)
            return false;
    }
    return true;
}

} // namespace

void Adapter(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), qsizetype(size));
    AdaptedStatement adapted;
    try {
        adapted = AdaptStatement(text);
    } catch (const ProviderFailure& failure) {
        if (failure.Description().isEmpty())
            throw BrokenPromise("a refusal without words");
        return;
    }
    if (adapted.Procedure) {
        if (adapted.Procedure->Name.isEmpty() || !adapted.Text.isEmpty())
            throw BrokenPromise("a call of nothing");
        return;
    }
    const Kept before = keptOf(text);
    const Kept after = keptOf(adapted.Text); // raises ProviderFailure where it cannot be read
    if (!comeAgain(before.Literals, after.Literals, text.toStdString()))
        throw BrokenPromise("a literal was changed");
    if (after.Comments.size() < before.Comments.size() && before.Comments.find(after.Comments) != 0)
        throw BrokenPromise("a comment was changed");
    try {
        Prepare(company(), adapted.Text, false);
    } catch (const ProviderFailure& failure) {
        if (failure.Description().isEmpty())
            throw BrokenPromise("a refusal of the database without words");
    }
}

} // namespace fuzz
