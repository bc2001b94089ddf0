#pragma once

/// The thread of the host on which all windows live, and what they need there. It is the thread of
/// the first call, and stays it until the process ends.
namespace TradeForms::Workplace {

/// Before any call of the host's is served. The first one makes the application. Raises
/// CallFailure on another thread than the first call's.
void Enter();
/// When a call has been served: what is to go after it goes now, as no loop of ours may ever run.
void Leave();

} // namespace TradeForms::Workplace
