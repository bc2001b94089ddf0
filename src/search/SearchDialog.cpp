#include "search/SearchDialog.h"

#include "search/SearchWindow.h"

#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>

namespace TradeForms {

namespace {

template <class Member> const Member& named(const QList<Member>& members, const char* name)
{
    const auto found = std::find_if(members.begin(), members.end(), [name](const Member& member) {
        return qstrcmp(member.Name, name) == 0;
    });
    if (found == members.end())
        throw std::out_of_range(name);
    return *found;
}

} // namespace

SearchDialog::SearchDialog(const SearchDeclaration& declaration) : declaration_(declaration)
{
    for (const SearchResult& result : declaration_.Results)
        EmptyParaOut(result);
}

SearchDialog& SearchDialog::Shared(const SearchDeclaration& declaration)
{
    static std::map<const SearchDeclaration*, std::unique_ptr<SearchDialog>> instances;
    std::unique_ptr<SearchDialog>& instance = instances[&declaration];
    if (!instance)
        instance = std::make_unique<SearchDialog>(declaration);
    return *instance;
}

void SearchDialog::SetParaIn(const char* name, const QVariant& value)
{
    paraIn_[named(declaration_.Inputs, name).Name] = value;
}

QVariant SearchDialog::ParaIn(const char* name) const
{
    return paraIn_.value(named(declaration_.Inputs, name).Name);
}

void SearchDialog::Show(QWidget* owner)
{
    SearchWindow window(*this);
    window.Guard([&window] { window.Load(); });
    window.ShowModal(owner);
}

QVariant SearchDialog::ParaOut(const char* name) const
{
    return paraOut_.value(named(declaration_.Results, name).Name);
}

QDate SearchDialog::ParaOutDate(const char* name) const
{
    return QDate::fromString(ParaOut(name).toString(), QStringLiteral("dd/MM/yyyy"));
}

void SearchDialog::EmptyParaOut(const SearchResult& result)
{
    paraOut_[result.Name] =
        result.Kind == SearchResult::Type::Text ? QVariant(QString()) : QVariant(0);
}

} // namespace TradeForms
