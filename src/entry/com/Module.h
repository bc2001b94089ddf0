#pragma once

#include <windows.h>

#include <string>

namespace TradeForms::Module {

/// The library in the host's process.
HINSTANCE Handle();
/// The file it was loaded from.
std::wstring Path();

/// One thing more, or less, for which the library has to stay: an object, a lock.
void Hold();
void LetGo();
/// From here on the library stays until the process ends.
void StayForGood();
/// Whether nothing keeps the library.
bool MayGo();

} // namespace TradeForms::Module
