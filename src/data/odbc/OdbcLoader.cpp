#include "data/odbc/OdbcLoader.h"

namespace TradeForms {

namespace {

QStringList fieldsOf(const Shape& shape)
{
    QStringList fields;
    for (int index = 0; index < shape.Count(); ++index)
        fields.append(shape.At(index).Field);
    return fields;
}

} // namespace

OdbcLoader::OdbcLoader(OdbcEngine& engine, const std::shared_ptr<const Shape>& shape)
    : OdbcRowWriter(engine, shape), engine_(engine)
{
    const QString& table = shape->BaseTable();
    const QStringList fields = fieldsOf(*shape);
    const QString takeNumbers = engine.Words().TakeGivenNumbers(table, fields);
    if (takeNumbers.isEmpty())
        return;
    engine.Guarded([&] { engine.Link().Run(takeNumbers); });
    giveNumbersAgain_ = engine.Words().GiveNumbersAgain(table, fields);
}

OdbcLoader::~OdbcLoader()
{
    if (giveNumbersAgain_.isEmpty())
        return;
    try {
        engine_.Link().Run(giveNumbersAgain_);
    } catch (const ProviderFailure&) {
        // The connection is gone, and the setting with it.
    }
}

} // namespace TradeForms
