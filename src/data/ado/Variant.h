#pragma once

#include <QString>
#include <QtGlobal>

#include <array>
#include <cstddef>

struct IDispatch;
struct tagVARIANT;

namespace TradeForms {

class Dispatch;

/// A value as automation objects take and give it. It owns what it holds: a text, a counted
/// reference, an array.
class Variant {
public:
    /// Empty, as a variable that was never set.
    Variant();
    Variant(bool value);
    Variant(qint16 value);
    Variant(qint32 value);
    Variant(double value);
    Variant(const QString& value);
    /// A counted reference to the object.
    Variant(const Dispatch& value);
    /// Any other pointer would pass for a truth value.
    Variant(const void*) = delete;
    ~Variant();
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    Variant& operator=(Variant other) noexcept;

    /// An optional argument that is left out.
    static Variant Missing();
    /// An argument by reference: what the callee puts there stands in the target afterwards. The
    /// target keeps its type; an empty one takes any. It must live, where it is, as long as this.
    static Variant ReferenceTo(Variant& target);

    /// No value: empty, null or left out.
    bool IsNothing() const;

    // The value in the type that is asked for. Each raises OverflowFailure where it is too large
    // for it, TypeMismatchFailure where it is none of that kind.
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

    // Its place, without the system's headers: three machine words, the first of eight bytes.
    alignas(8) std::array<std::byte, 8 + 2 * sizeof(void*)> bytes_;
};

} // namespace TradeForms
