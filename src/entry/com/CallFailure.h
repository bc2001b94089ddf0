#pragma once

#include "data/Failure.h"

#include <windows.h>

#include <oaidl.h>

namespace TradeForms {

/// A call that cannot be served as it was made, and the system's number for that.
class CallFailure : public Failure {
public:
    CallFailure(const QString& description, HRESULT result);
    ~CallFailure() override;

    HRESULT Result() const { return result_; }

private:
    HRESULT result_;
};

/// What a host is told of a failure.
struct FailureReport {
    HRESULT Result = E_FAIL;
    QString Description;

    /// Of the exception that is being handled. A database's own number goes on to the host where
    /// it is a failure number of the system's kind.
    static FailureReport OfCurrentException();

    /// Leaves it to the thread as the error object of an interface; gives Result back.
    HRESULT Publish(REFIID interfaceId) const;
    /// For a late-bound caller, who may not want it. Gives back what Invoke is to return.
    HRESULT Fill(EXCEPINFO* told) const;
};

} // namespace TradeForms
