#pragma once

#include <QString>
#include <QtGlobal>

#include <array>
#include <cstddef>

struct IDispatch;
struct tagVARIANT;

namespace TradeForms {

class Dispatch;

/// A value for automation objects (a VARIANT). It owns its text, object reference or array.
class Variant {
public:
    /// An empty value.
    Variant();
    Variant(bool value);
    Variant(qint16 value);
    Variant(qint32 value);
    Variant(double value);
    Variant(const QString& value);
    /// A counted reference to the object.
    Variant(const Dispatch& value);
    /// Without this, any pointer would be converted to bool.
    Variant(const void*) = delete;
    ~Variant();
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    Variant& operator=(Variant other) noexcept;

    /// The value for an optional argument that is omitted.
    static Variant Missing();
    /// An argument by reference, which the callee sets in the target. The target keeps its type,
    /// unless it is empty. It must exist at the same address as long as the reference.
    static Variant ReferenceTo(Variant& target);

    /// Whether it is empty, null or an omitted argument.
    bool IsNothing() const;

    // The value converted to a type. Each raises OverflowFailure where it is too large for the
    // type, TypeMismatchFailure where it cannot be converted.
    bool ToBool() const;
    qint16 ToInt16() const;
    qint32 ToInt32() const;
    double ToDouble() const;
    QString ToString() const;
    Dispatch ToDispatch() const;

    tagVARIANT* Raw() { return reinterpret_cast<tagVARIANT*>(bytes_.data()); }
    const tagVARIANT* Raw() const { return reinterpret_cast<const tagVARIANT*>(bytes_.data()); }

private:
    Variant converted(unsigned short type) const;

    // Storage for a VARIANT, without the system's headers: eight bytes and two pointers.
    alignas(8) std::array<std::byte, 8 + 2 * sizeof(void*)> bytes_;
};

} // namespace TradeForms
