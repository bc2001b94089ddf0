#include "frame/VoucherHeader.h"

#include "controls/Buttons.h"
#include "controls/DTPicker.h"
#include "controls/Txt.h"
#include "data/Numbers.h"
#include "data/Recordset.h"
#include "host/HostContext.h"

namespace TradeForms {

namespace HeaderFields {

namespace {

std::function<void(const QVariant&)> showIn(Txt& control)
{
    return [&control](const QVariant& value) { control.SetText(TextOf(value)); };
}

} // namespace

HeaderField Number(const char* column, Txt& control, Write when)
{
    return {column, when, [&control] { return QVariant(Val(control.Text())); }, showIn(control)};
}

HeaderField NumberOrNull(const char* column, Txt& control)
{
    return {column, Write::Always,
            [&control] {
                const double number = Val(control.Text());
                return number == 0 ? QVariant() : QVariant(number);
            },
            showIn(control)};
}

HeaderField Text(const char* column, Txt& control, Write when)
{
    return {column, when, [&control] { return QVariant(control.Text()); }, showIn(control)};
}

HeaderField TrimmedText(const char* column, Txt& control)
{
    return {column, Write::Always, [&control] { return QVariant(control.Text().trimmed()); },
            showIn(control)};
}

HeaderField OptionalText(const char* column, Txt& control)
{
    return {column, Write::Always,
            [&control] {
                const QString text = control.Text();
                return text.trimmed().isEmpty() ? QVariant() : QVariant(text);
            },
            showIn(control)};
}

HeaderField TextOrNull(const char* column, Txt& control)
{
    return {column, Write::Always,
            [&control] {
                const QString text = control.Text();
                return text.isEmpty() ? QVariant() : QVariant(text);
            },
            showIn(control)};
}

HeaderField Shown(const char* column, Txt& control)
{
    return {column, Write::Never, nullptr, showIn(control)};
}

HeaderField Date(const char* column, DTPicker& control, Write when)
{
    return {column, when, [&control] { return QVariant(control.Value()); },
            [&control](const QVariant& value) { control.SetValue(value.toDate()); }};
}

HeaderField ShownDate(const char* column, DTPicker& control)
{
    return {column, Write::Never, nullptr,
            [&control](const QVariant& value) {
                if (!value.isNull())
                    control.SetValue(value.toDate());
            }};
}

HeaderField Flag(const char* column, OptionButton& control)
{
    return {column, Write::Always, [&control] { return QVariant(control.Value()); },
            [&control](const QVariant& value) { control.SetValue(value.toBool()); }};
}

HeaderField Value(const char* column, Write when, std::function<QVariant()> value)
{
    return {column, when, std::move(value), nullptr};
}

HeaderField EntryDate()
{
    return Value(
        "EntryDate", Write::NewOnly, [] { return QDateTime::currentDateTime(); });
}

HeaderField IsPosted()
{
    return Value(
        "isPosted", Write::NewOnly, [] { return false; });
}

HeaderField UserNo()
{
    return Value(
        "UserNo", Write::Always, [] { return int(HostContext::UserNo); });
}

} // namespace HeaderFields

void VoucherHeader::Load(const Recordset& record) const
{
    for (const HeaderField& field : fields_)
        if (field.Load)
            field.Load(record.Value(field.Column));
}

void VoucherHeader::Save(Recordset& record, bool isNew) const
{
    using Write = HeaderField::Write;
    for (const HeaderField& field : fields_)
        if (field.When == Write::Always || (field.When == Write::NewOnly && isNew))
            record.Fields(field.Column).SetValue(field.Save());
}

} // namespace TradeForms
