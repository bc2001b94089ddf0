#pragma once

#include "data/Failure.h"

#include <windows.h>

#include <oaidl.h>

namespace TradeForms {

/// An invalid call, with its HRESULT.
class CallFailure : public Failure {
public:
    CallFailure(const QString& description, HRESULT result);
    ~CallFailure() override;

    HRESULT Result() const { return result_; }

private:
    HRESULT result_;
};

/// A failure as it is reported to a host.
struct FailureReport {
    HRESULT Result = E_FAIL;
    QString Description;

    /// Describes the exception being handled. A database's error number is passed on where it is a
    /// failing HRESULT.
    static FailureReport OfCurrentException();

    /// Sets it as the thread's error object. Returns Result.
    HRESULT Publish(REFIID interfaceId) const;
    /// Fills an EXCEPINFO, which may be null. Returns the result of Invoke.
    HRESULT Fill(EXCEPINFO* told) const;
};

} // namespace TradeForms
