#pragma once

#include <TradeForms/Recordset.h>

#include <QList>
#include <QVariant>

#include <initializer_list>
#include <memory>
#include <span>

namespace TradeForms {
class Connection;
}

namespace Sample {

/// Adds many rows to one table, a batch at a time. Call Finish after the last row.
class TableWriter {
public:
    TableWriter(std::shared_ptr<TradeForms::Connection> connection, const char* table,
                std::initializer_list<const char*> columns);

    /// One row, its values in the order of the columns; an invalid one is a null.
    void Row(std::initializer_list<QVariant> values) { Row(std::span(values)); }
    void Row(std::span<const QVariant> values);
    void Finish();

private:
    void open();
    void flush();

    static constexpr int batch = 500;

    std::shared_ptr<TradeForms::Connection> connection_;
    TradeForms::Statement source_;
    QList<int> fields_;
    TradeForms::Recordset rows_;
    int pending_ = 0;
};

} // namespace Sample
