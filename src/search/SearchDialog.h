#pragma once

#include "data/Recordset.h"
#include "search/SearchDeclaration.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QVariant>

class QWidget;

namespace TradeForms {

/// A search dialog. There is one shared instance of each. Every Show opens a new window with a new
/// list; the ParaIn and ParaOut fields keep their values.
class SearchDialog {
public:
    explicit SearchDialog(const SearchDeclaration& declaration);
    SearchDialog(const SearchDialog&) = delete;
    SearchDialog& operator=(const SearchDialog&) = delete;

    /// The shared instance of a declaration, made on first use.
    static SearchDialog& Shared(const SearchDeclaration& declaration);

    const SearchDeclaration& Declaration() const { return declaration_; }

    /// Sets a ParaIn field; it keeps its value until it is set again.
    /// Raises std::out_of_range for an unknown name.
    void SetParaIn(const char* name, const QVariant& value);
    QVariant ParaIn(const char* name) const;

    /// Shows the dialog modally over the owner and returns when it has been unloaded.
    void Show(QWidget* owner);

    /// A result: the empty text or 0 where nothing was chosen. Results are text, or whole
    /// numbers. Raises std::out_of_range for an unknown name.
    QVariant ParaOut(const char* name) const;
    /// A text result that holds a date, day first as lists show it; invalid where nothing was
    /// chosen. To be bound to a statement as a date: as the text that it is, it would be read month
    /// first.
    QDate ParaOutDate(const char* name) const;

private:
    friend class SearchWindow;
    void EmptyParaOut(const SearchResult& result);

    const SearchDeclaration& declaration_;
    QHash<QByteArray, QVariant> paraIn_;
    QHash<QByteArray, QVariant> paraOut_;
};

} // namespace TradeForms
