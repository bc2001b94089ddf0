#include "fuzz/Targets.h"

#include "data/Failure.h"
#include "data/Statement.h"
#include "data/Tokens.h"

#include <string>
#include <vector>

namespace fuzz {

using namespace TradeForms;

namespace {

/// Statements with two placeholders, {a} quoted and {b} bare.
constexpr const char* templates[] = {
    "select * from T where A='{a}' and B={b}",
    "select * from T where A like '%{a}%' and B ={b} order by C",
    "Delete from T where B = {b} and A='{a}'",
    "select A-{b}, left('{a}',2) from T",
    "insert into T (A, B) values ('{a}',{b})",
    "Select A from T where C <> 'x' and B={b} and A='{a}' or D in ('{a}',{b})",
    "exec P '{a}',{b}"};

using Shape = std::vector<std::string>;

/// The tokens of a statement, in which all literals are replaced by a quote and all numbers by 0.
Shape shapeOf(const QString& statement)
{
    const QByteArray text = statement.toUtf8();
    Shape shape;
    for (const Token& token : ReadTokens({text.constData(), std::size_t(text.size())}))
        if (token.Kind == Token::Type::Literal)
            shape.emplace_back("'");
        else if (token.Kind == Token::Type::Number)
            shape.emplace_back("0");
        else
            shape.emplace_back(token.Text);
    return shape;
}

QString filled(const char* text, const QVariant& quoted, const QVariant& bare)
{
    return TradeForms::Statement(text).Bind("a", quoted).Bind("b", bare).Text();
}

} // namespace

/// The first byte selects the template, the second is the length of the quoted value; the rest is
/// the bare value.
void Statement(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return;
    const char* text = templates[data[0] % std::size(templates)];
    const QString values =
        QString::fromUtf8(reinterpret_cast<const char*>(data + 2), qsizetype(size - 2));
    const QString quoted = values.left(data[1]);
    const QString bare = values.mid(data[1]);
    for (const bool isBare : {false, true}) {
        QString made;
        try {
            made = isBare ? filled(text, QStringLiteral("x"), bare) : filled(text, quoted, 1);
        } catch (const Failure& failure) {
            if (failure.Description().isEmpty())
                throw BrokenPromise("a refusal without words");
            continue;
        }
        try {
            // A number may have a sign.
            const Shape shape = shapeOf(made);
            if (shape != shapeOf(filled(text, QStringLiteral("x"), 1)) &&
                shape != shapeOf(filled(text, QStringLiteral("x"), -1)) &&
                shape != shapeOf(filled(text, QStringLiteral("x"), QStringLiteral("+1"))))
                throw BrokenPromise("a value changed what the statement means");
        } catch (const ProviderFailure&) {
            // A character that no statement can contain makes it fail when it is run.
        }
    }
}

} // namespace fuzz
