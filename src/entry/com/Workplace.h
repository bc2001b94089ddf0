#pragma once

/// The thread of the host on which all windows live: that of the first call, until the process
/// ends.
namespace TradeForms::Workplace {

/// To be called before each call is served. The first one creates the application. Raises
/// CallFailure on another thread than the first call's.
void Enter();
/// To be called after each call: runs the deferred deletions, as Qt's own event loop may never run.
void Leave();

} // namespace TradeForms::Workplace
