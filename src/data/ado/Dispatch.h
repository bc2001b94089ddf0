#pragma once

#include "data/Failure.h"
#include "data/ado/Variant.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace TradeForms {

/// A call of an automation object that failed, with the message of the object.
class DispatchFailure : public Failure {
public:
    DispatchFailure(const QString& description, qint32 number);
    ~DispatchFailure() override;

    /// The error code of the object, or of the system where the call did not reach the object.
    qint32 Number() const { return number_; }

private:
    qint32 number_;
};

/// A counted reference to an automation object whose members are called by name. Member ids are
/// cached. To be used on the thread on which the object was created.
class Dispatch {
public:
    /// No object.
    Dispatch() = default;
    /// Adds a reference; null is no object.
    explicit Dispatch(IDispatch* object);
    ~Dispatch();
    Dispatch(const Dispatch& other);
    Dispatch(Dispatch&& other) noexcept;
    Dispatch& operator=(Dispatch other) noexcept;

    explicit operator bool() const { return object_ != nullptr; }
    IDispatch* Raw() const { return object_; }

    // Arguments are in the order of declaration. Each call raises DispatchFailure where there is no
    // object, where it has no such member, and where the call fails.

    /// The value of a property, or of a function that is called like one.
    template <class... Arguments> Variant Get(const char* member, Arguments&&... arguments) const
    {
        return invoke(member, Kind::Get, {std::forward<Arguments>(arguments)...});
    }
    /// Calls a method. Returns an empty value where it has no result.
    template <class... Arguments> Variant Call(const char* member, Arguments&&... arguments) const
    {
        return invoke(member, Kind::Call, {std::forward<Arguments>(arguments)...});
    }
    /// Sets a property, by reference where the value is an object.
    void Set(const char* member, Variant value) const;

private:
    enum class Kind { Get, Call, Set };

    Variant invoke(const char* member, Kind kind, std::vector<Variant> arguments) const;
    qint32 numberOf(const char* member) const;

    IDispatch* object_ = nullptr;
    mutable std::map<std::string, qint32, std::less<>> numbers_; // member ids by name
};

} // namespace TradeForms
