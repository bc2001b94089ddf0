#pragma once

#include <QList>
#include <QVariant>

#include <functional>

namespace TradeForms {

class DTPicker;
class OptionButton;
class Recordset;
class Txt;

/// One field of a voucher's header: how it is loaded into its control and how it is saved. A form
/// gets a further field by one line in its list.
struct HeaderField {
    enum class Write {
        Always,
        NewOnly, ///< only when the voucher is first stored
        Never    ///< display-only, such as the name beside a code
    };
    const char* Column;
    Write When;
    std::function<QVariant()> Save;            ///< returns the value; null if never written
    std::function<void(const QVariant&)> Load; ///< shows the value; null if not shown
};

/// Functions that make the common kinds of header fields. column: the name of the database column.
namespace HeaderFields {

using Write = HeaderField::Write;

/// A number in a text field, saved as Val of its text.
HeaderField Number(const char* column, Txt& control, Write when = Write::Always);
/// The same, but 0 is saved as null, and null loads as the empty text.
HeaderField NumberOrNull(const char* column, Txt& control);
/// Text, saved unchanged.
HeaderField Text(const char* column, Txt& control, Write when = Write::Always);
/// Text, saved without leading and trailing spaces.
HeaderField TrimmedText(const char* column, Txt& control);
/// Optional text: an empty text or one of spaces only is saved as null; null loads as the empty
/// text.
HeaderField OptionalText(const char* column, Txt& control);
/// Free text, saved unchanged including spaces; only the empty text is saved as null.
HeaderField TextOrNull(const char* column, Txt& control);
/// The name that belongs to a code; it is not saved. Null loads as the empty text.
HeaderField Shown(const char* column, Txt& control);
HeaderField Date(const char* column, DTPicker& control, Write when = Write::Always);
/// A date that is not saved. Null leaves the date loaded by an earlier field.
HeaderField ShownDate(const char* column, DTPicker& control);
HeaderField Flag(const char* column, OptionButton& control);
/// A value that the program supplies when saving; it is not shown.
HeaderField Value(const char* column, Write when, std::function<QVariant()> value);

// Who stored the voucher, and when.

/// The date and time at which the voucher was first stored, in column EntryDate.
HeaderField EntryDate();
/// Writes false to column isPosted of a new voucher.
HeaderField IsPosted();
/// The user who saved last, in column UserNo.
HeaderField UserNo();

} // namespace HeaderFields

/// The fields of a header in the order in which they are loaded.
class VoucherHeader {
public:
    VoucherHeader() = default;
    explicit VoucherHeader(QList<HeaderField> fields) : fields_(std::move(fields)) {}

    /// Copies the record's current row to the controls.
    void Load(const Recordset& record) const;
    /// Copies the controls to the record's current row: fields written always and, if isNew, those
    /// written only once.
    void Save(Recordset& record, bool isNew) const;

private:
    QList<HeaderField> fields_;
};

} // namespace TradeForms
