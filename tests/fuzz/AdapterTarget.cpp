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

/// A company for preparing statements; none of them is run.
sqlite3* company()
{
    static const QTemporaryDir folder;
    static const std::unique_ptr<Engine> engine =
        CreateCompanyFile(folder.filePath(QStringLiteral("fuzz.company")));
    return static_cast<SqliteEngine&>(*engine).Raw();
}

/// The literals of a statement, and the text between its tokens, which is comments.
struct Contents {
    std::vector<std::string> Literals;
    std::string Comments;
};

Contents contentsOf(const QByteArray& text)
{
    const std::string_view view(text.constData(), std::size_t(text.size()));
    Contents contents;
    std::size_t end = 0;
    for (const Token& token : ReadTokens(view)) {
        if (token.Kind == Token::Type::Literal)
            contents.Literals.emplace_back(token.Text);
        const std::size_t begin = std::size_t(token.Text.data() - view.data());
        for (const char letter : view.substr(end, begin - end))
            if (letter != ' ')
                contents.Comments += letter;
        end = begin + token.Text.size();
    }
    return contents;
}

/// A literal with digits may be a date, which is written in its stored form.
bool mayBeDate(const std::string& literal)
{
    return literal.find_first_of("0123456789") != std::string::npos;
}

/// Whether all literals are still there in the same order, except for an alias that became a name
/// and a date that was written in its stored form.
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
    const Contents before = contentsOf(text);
    const Contents after =
        contentsOf(adapted.Text); // raises ProviderFailure where it cannot be read
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
