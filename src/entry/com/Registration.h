#pragma once

#include <windows.h>

namespace TradeForms {

/// Registers the class and its type library for all users of this machine, with the file that this
/// library was loaded from. Registering again updates the path. SELFREG_E_CLASS or
/// SELFREG_E_TYPELIB where it is not allowed to; then nothing is left behind.
HRESULT RegisterServer();

/// Removes what RegisterServer enters. Succeeds where nothing is registered.
HRESULT UnregisterServer();

} // namespace TradeForms
