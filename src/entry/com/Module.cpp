#include "entry/com/Module.h"

#include <atomic>

// The linker's symbol for the base address of the module.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace TradeForms::Module {

namespace {

std::atomic<long> holders = 0;

} // namespace

HINSTANCE Handle()
{
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

std::wstring Path()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(Handle(), path.data(), DWORD(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void Hold()
{
    ++holders;
}

void LetGo()
{
    --holders;
}

void StayForGood()
{
    Hold();
    // CoUninitialize unloads libraries without calling DllCanUnloadNow.
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(&__ImageBase), &pinned);
}

bool MayGo()
{
    return holders == 0;
}

} // namespace TradeForms::Module
