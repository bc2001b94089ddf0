#pragma once

#include <windows.h>

#include <oaidl.h>

/// The export of host_connection.dll for test hosts in other languages: creates a connection to a
/// company file that behaves like one to a database server. file: a path. The connection has a
/// reference count of one. Returns E_FAIL if the file cannot be opened, with the reason on standard
/// error. Uses the C calling convention, because others export a decorated name on 32 bits.
extern "C" __declspec(dllexport) HRESULT
    CreateHostConnection(const wchar_t* file, IDispatch** connection);
