#pragma once

#include <QList>
#include <QVariant>

#include <functional>

namespace TradeForms {

class DTPicker;
class OptionButton;
class Recordset;
class Txt;

/// One field of a voucher's header: how it comes into its control, and how it is saved. Adding
/// a field to a form is one line in its list.
struct HeaderField {
    enum class Write {
        Always,
        NewOnly, ///< when the voucher is stored for the first time
        Never    ///< shown only, such as the name beside a code
    };
    const char* Column;
    Write When;
    std::function<QVariant()> Save;            ///< null where it is never written
    std::function<void(const QVariant&)> Load; ///< null where nothing shows it
};

/// The kinds of field that forms have.
namespace HeaderFields {

using Write = HeaderField::Write;

/// A number in a text field, saved as its Val.
HeaderField Number(const char* column, Txt& control, Write when = Write::Always);
/// The same, but 0 is saved as null and null loads as the empty text.
HeaderField NumberOrNull(const char* column, Txt& control);
/// Text as it stands.
HeaderField Text(const char* column, Txt& control, Write when = Write::Always);
/// Text without its outer blanks.
HeaderField TrimmedText(const char* column, Txt& control);
/// A text that may be left out: blank is saved as null, null loads as the empty text.
HeaderField OptionalText(const char* column, Txt& control);
/// Free text: as it stands, blanks and all, only the empty one is saved as null.
HeaderField TextOrNull(const char* column, Txt& control);
/// A name that comes with a code and is not saved; null loads as the empty text.
HeaderField Shown(const char* column, Txt& control);
HeaderField Date(const char* column, DTPicker& control, Write when = Write::Always);
/// A date that is not saved. A null leaves the one that an earlier field has put there.
HeaderField ShownDate(const char* column, DTPicker& control);
HeaderField Flag(const char* column, OptionButton& control);
/// A value of the program's own: shown nowhere.
HeaderField Value(const char* column, Write when, std::function<QVariant()> value);

// Who stored the voucher, and when.

/// The moment in which the voucher is stored for the first time, into column EntryDate.
HeaderField EntryDate();
/// False in a new voucher's column isPosted.
HeaderField IsPosted();
/// The user who has saved last, into column UserNo.
HeaderField UserNo();

} // namespace HeaderFields

/// A header's fields in the order in which they load.
class VoucherHeader {
public:
    VoucherHeader() = default;
    explicit VoucherHeader(QList<HeaderField> fields) : fields_(std::move(fields)) {}

    /// Copies the current record to the controls.
    void Load(const Recordset& record) const;
    /// Copies the controls to the current record: all that is written always, and what is
    /// written once where the voucher is new.
    void Save(Recordset& record, bool isNew) const;

private:
    QList<HeaderField> fields_;
};

} // namespace TradeForms
