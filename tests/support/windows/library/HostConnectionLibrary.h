#pragma once

#include <windows.h>

#include <oaidl.h>

/// What host_connection.dll gives a test host in another language: a connection to a company file
/// which answers as one to a database server does. The file is a path; the connection comes with a
/// count of one. E_FAIL where the file cannot be opened; the reason goes to standard error. Called
/// as a C function: others would be given out under a longer name where they take 32 bits.
extern "C" __declspec(dllexport) HRESULT
    CreateHostConnection(const wchar_t* file, IDispatch** connection);
