#include "sample/TableWriter.h"

#include <TradeForms/Connection.h>

namespace Sample {

using TradeForms::CursorType;
using TradeForms::LockType;
using TradeForms::Statement;

TableWriter::TableWriter(std::shared_ptr<TradeForms::Connection> connection, const char* table,
                         std::initializer_list<const char*> columns)
    : connection_(std::move(connection)),
      source_(QStringLiteral("Select * from %1 where 1=0").arg(QLatin1String(table)))
{
    open();
    for (const char* column : columns) {
        // Fields raises for an unknown column.
        fields_.append(rows_.FieldIndex(rows_.Fields(column).Name()));
    }
}

void TableWriter::Row(std::span<const QVariant> values)
{
    Q_ASSERT(qsizetype(values.size()) == fields_.size());
    rows_.AddNew();
    auto field = fields_.cbegin();
    for (const QVariant& value : values)
        rows_.Fields(*field++).SetValue(value);
    rows_.Update();
    if (++pending_ == batch) {
        flush();
        open();
    }
}

void TableWriter::Finish()
{
    flush();
}

void TableWriter::open()
{
    rows_.Open(source_, connection_, CursorType::Static, LockType::BatchOptimistic);
}

void TableWriter::flush()
{
    rows_.UpdateBatch();
    rows_.Close();
    pending_ = 0;
}

} // namespace Sample
