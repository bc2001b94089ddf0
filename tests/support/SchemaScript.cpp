#include "support/SchemaScript.h"

#include "data/Tokens.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <functional>

using namespace TradeForms;

namespace tests {

namespace {

QString nameOf(const Token& token)
{
    std::string_view text = token.Text;
    if (token.Kind == Token::Type::Quoted)
        text = text.substr(1, text.size() - 2);
    return QString::fromUtf8(text.data(), qsizetype(text.size())).toLower();
}

QString embeddedType(const QString& serverType)
{
    static const QMap<QString, QString> types{
        {QStringLiteral("varchar"), QStringLiteral("TEXT")},
        {QStringLiteral("int"), QStringLiteral("INTEGER")},
        {QStringLiteral("decimal"), QStringLiteral("NUMERIC")},
        {QStringLiteral("bit"), QStringLiteral("BIT")},
        {QStringLiteral("date"), QStringLiteral("DATE")},
        {QStringLiteral("datetime2"), QStringLiteral("DATETIME")},
    };
    if (!types.contains(serverType))
        ADD_FAILURE() << "unknown type " << serverType.toStdString();
    return types.value(serverType);
}

/// Scans the tokens of a script for the objects that it creates.
class ScriptReader {
public:
    explicit ScriptReader(const std::vector<Token>& tokens) : tokens_(tokens) {}

    SchemaObjects Read()
    {
        for (; at_ < tokens_.size(); ++at_) {
            if (!takeWords({"create"}))
                continue;
            takeWords({"or", "alter"});
            takeWords({"unique"});
            if (takeWords({"table"}))
                readTable();
            else if (takeWords({"index"}))
                readIndex();
            else if (takeWords({"view"}))
                objects_.Views.append(takeName());
            else if (takeWords({"function"}))
                objects_.Functions.append(takeName());
            else if (takeWords({"procedure"}))
                objects_.Procedures.append(takeName());
            --at_; // the current token may begin the next statement
        }
        objects_.Views.sort();
        objects_.Functions.sort();
        objects_.Procedures.sort();
        return objects_;
    }

private:
    bool takeWords(std::initializer_list<std::string_view> words)
    {
        std::size_t at = at_;
        for (const std::string_view word : words)
            if (at >= tokens_.size() || !tokens_[at++].IsWord(word))
                return false;
        at_ = at;
        return true;
    }

    /// Reads a name and drops its schema.
    QString takeName()
    {
        if (tokens_[at_].IsWord("dbo") && tokens_[at_ + 1].IsSymbol('.'))
            at_ += 2;
        return nameOf(tokens_[at_++]);
    }

    /// Reads a list of names in parentheses.
    QStringList takeList()
    {
        QStringList names;
        for (++at_; !tokens_[at_].IsSymbol(')'); ++at_)
            if (!tokens_[at_].IsSymbol(','))
                names.append(nameOf(tokens_[at_]));
        ++at_;
        return names;
    }

    void readTable()
    {
        SchemaObjects::Table& table = objects_.Tables[takeName()];
        ++at_;
        while (true) {
            if (takeWords({"primary", "key"})) {
                table.Key = takeList();
            } else {
                const QString name = nameOf(tokens_[at_++]);
                table.Columns.append(name + u' ' + embeddedType(nameOf(tokens_[at_++])));
                skipToEndOfColumn(table, name);
            }
            if (tokens_[at_++].IsSymbol(')'))
                return;
        }
    }

    /// Moves to the comma or parenthesis that ends the column's definition.
    void skipToEndOfColumn(SchemaObjects::Table& table, const QString& name)
    {
        int depth = 0;
        for (;; ++at_) {
            if (depth == 0 && (tokens_[at_].IsSymbol(',') || tokens_[at_].IsSymbol(')')))
                return;
            depth += int(tokens_[at_].IsSymbol('(')) - int(tokens_[at_].IsSymbol(')'));
            if (tokens_[at_].IsWord("primary"))
                table.Key.append(name);
        }
    }

    void readIndex()
    {
        const QString name = takeName();
        takeWords({"on"});
        const QString table = takeName();
        objects_.Indexes[name] = table + u'(' + takeList().join(u',') + u')';
    }

    const std::vector<Token>& tokens_;
    std::size_t at_ = 0;
    SchemaObjects objects_;
};

template <class Value>
void compare(const QMap<QString, Value>& first, const QMap<QString, Value>& second,
             const QString& kind, const std::function<QString(const Value&)>& shown,
             QStringList& differences)
{
    const auto told = [&](const QMap<QString, Value>& from, const QString& name) {
        return from.contains(name) ? shown(from[name]) : QStringLiteral("none");
    };
    QStringList names = first.keys() + second.keys();
    names.sort();
    names.removeDuplicates();
    for (const QString& name : std::as_const(names)) {
        if (told(first, name) != told(second, name))
            differences.append(QStringLiteral("%1 %2: %3 | %4")
                                   .arg(kind, name, told(first, name), told(second, name)));
    }
}

void compareLists(const QStringList& first, const QStringList& second, const QString& kind,
                  QStringList& differences)
{
    if (first != second)
        differences.append(
            QStringLiteral("%1: %2 | %3").arg(kind, first.join(u' '), second.join(u' ')));
}

} // namespace

SchemaObjects ReadServerScript(const QString& script)
{
    const QByteArray text = script.toUtf8();
    const std::vector<Token> tokens =
        ReadTokens(std::string_view(text.constData(), std::size_t(text.size())));
    return ScriptReader(tokens).Read();
}

SchemaObjects ReadCompanyFile(const TestCompany& company)
{
    SchemaObjects objects;
    for (const QVariantList& row :
         company.Rows("select name, type from sqlite_schema where name not like 'sqlite_%' "
                      "and type in ('table', 'view') order by name")) {
        const QString name = row[0].toString().toLower();
        if (row[1].toString() == QLatin1String("view")) {
            objects.Views.append(name);
            continue;
        }
        SchemaObjects::Table& table = objects.Tables[name];
        QMap<int, QString> key;
        for (const QVariantList& column : company.Rows(
                 QStringLiteral("select name, type, pk from pragma_table_info('%1')").arg(name))) {
            const QString field = column[0].toString().toLower();
            table.Columns.append(field + u' ' + column[1].toString());
            if (column[2].toInt() > 0)
                key[column[2].toInt()] = field;
        }
        table.Key = key.values();
    }
    for (const QVariantList& row : company.Rows(
             "select name, tbl_name from sqlite_schema where type='index' and sql is not null")) {
        QStringList columns;
        for (const QVariantList& column : company.Rows(
                 // The only index on an expression is the one on the number written in AutoCard.
                 QStringLiteral("select ifnull(name, 'AutoCard') from pragma_index_xinfo('%1') "
                                "where key=1 order by seqno")
                     .arg(row[0].toString())))
            columns.append(column[0].toString().toLower());
        objects.Indexes[row[0].toString().toLower()] =
            row[1].toString().toLower() + u'(' + columns.join(u',') + u')';
    }
    objects.Views.sort();
    return objects;
}

QStringList Differences(const SchemaObjects& first, const SchemaObjects& second)
{
    QStringList differences;
    compare<SchemaObjects::Table>(
        first.Tables, second.Tables, QStringLiteral("table"),
        [](const SchemaObjects::Table& table) {
            return table.Columns.join(QLatin1String(", ")) + QLatin1String("; key ") +
                   table.Key.join(u',');
        },
        differences);
    compare<QString>(
        first.Indexes, second.Indexes, QStringLiteral("index"),
        [](const QString& columns) { return columns; }, differences);
    compareLists(first.Views, second.Views, QStringLiteral("views"), differences);
    compareLists(first.Functions, second.Functions, QStringLiteral("functions"), differences);
    compareLists(first.Procedures, second.Procedures, QStringLiteral("procedures"), differences);
    return differences;
}

} // namespace tests
