#pragma once

#include "data/Failure.h"
#include "data/ado/Variant.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace TradeForms {

/// What an automation object reported of a call that failed, in its own words.
class DispatchFailure : public Failure {
public:
    DispatchFailure(const QString& description, qint32 number);
    ~DispatchFailure() override;

    /// The object's own number, or the system's for a call that never reached it.
    qint32 Number() const { return number_; }

private:
    qint32 number_;
};

/// A counted reference to an automation object, whose members are called by their names. No name
/// is looked up twice. Used on the thread on which the object was made.
class Dispatch {
public:
    /// No object.
    Dispatch() = default;
    /// Counts a reference of its own; null is no object.
    explicit Dispatch(IDispatch* object);
    ~Dispatch();
    Dispatch(const Dispatch& other);
    Dispatch(Dispatch&& other) noexcept;
    Dispatch& operator=(Dispatch other) noexcept;

    explicit operator bool() const { return object_ != nullptr; }
    IDispatch* Raw() const { return object_; }

    // Arguments stand in the order in which the member declares them. Each call raises
    // DispatchFailure where there is no such member, where the call cannot be made, and where the
    // object fails it.

    /// A property's value, or a function's that is called as one.
    template <class... Arguments> Variant Get(const char* member, Arguments&&... arguments) const
    {
        return invoke(member, Kind::Get, {std::forward<Arguments>(arguments)...});
    }
    /// Calls a method. The result is empty where it gives none.
    template <class... Arguments> Variant Call(const char* member, Arguments&&... arguments) const
    {
        return invoke(member, Kind::Call, {std::forward<Arguments>(arguments)...});
    }
    /// Sets a property; an object is set by reference.
    void Set(const char* member, Variant value) const;

private:
    enum class Kind { Get, Call, Set };

    Variant invoke(const char* member, Kind kind, std::vector<Variant> arguments) const;
    qint32 numberOf(const char* member) const;

    IDispatch* object_ = nullptr;
    mutable std::map<std::string, qint32, std::less<>> numbers_; // of the members used so far
};

} // namespace TradeForms
