#pragma once

#include <windows.h>

#include <string>

namespace TradeForms::Module {

/// The lifetime of the library in the host's process.
HINSTANCE Handle();
/// The path of the file that it was loaded from.
std::wstring Path();

/// Adds or releases a reference that keeps the library loaded: an object or a lock.
void Hold();
void LetGo();
/// Keeps the library loaded until the process ends.
void StayForGood();
/// Whether no reference keeps the library loaded.
bool MayGo();

} // namespace TradeForms::Module
