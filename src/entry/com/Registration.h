#pragma once

#include <windows.h>

namespace TradeForms {

/// Enters the class and its type library for all users of this machine, from the file that this
/// library was loaded from. Doing it again changes nothing, or enters the file's new place.
/// SELFREG_E_CLASS or SELFREG_E_TYPELIB where it is not allowed to; then nothing is left behind.
HRESULT RegisterServer();

/// Takes out all that RegisterServer enters. It is no failure where nothing is there.
HRESULT UnregisterServer();

} // namespace TradeForms
