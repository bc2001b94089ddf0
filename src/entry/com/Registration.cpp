#include "entry/com/Registration.h"

#include "TradeFormsClass.h"

#include "entry/com/Module.h"

#include <olectl.h>

#include <iterator>
#include <string>
#include <vector>

namespace TradeForms {

namespace {

constexpr const wchar_t* kProgId = L"TradeForms.Forms";
constexpr const wchar_t* kProgIdOfVersion = L"TradeForms.Forms.1";
constexpr const wchar_t* kDescription = L"The screens of TradeForms";
constexpr WORD kMajor = 1;
constexpr WORD kMinor = 0;
#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
#endif

std::wstring textOf(REFGUID id)
{
    wchar_t text[39];
    StringFromGUID2(id, text, int(std::size(text)));
    return text;
}

/// For all users: HKEY_CLASSES_ROOT may lead to the user's own classes.
std::wstring pathOf(const std::wstring& key)
{
    return L"Software\\Classes\\" + key;
}

std::wstring classKey()
{
    return L"CLSID\\" + textOf(CLSID_Forms);
}

/// The default value of a key.
struct Entry {
    std::wstring Key;
    std::wstring Value;
};

// No threading model: the class lives in the main single-threaded apartment, and calls from other
// threads are marshalled to it.
std::vector<Entry> entries()
{
    const std::wstring id = textOf(CLSID_Forms);
    const std::wstring key = classKey();
    const std::wstring progId = kProgId;
    const std::wstring progIdOfVersion = kProgIdOfVersion;
    return {
        {key, kDescription},
        {key + L"\\InprocServer32", Module::Path()},
        {key + L"\\ProgID", progIdOfVersion},
        {key + L"\\VersionIndependentProgID", progId},
        {key + L"\\TypeLib", textOf(LIBID_TradeForms)},
        {key + L"\\Version", L"1.0"},
        {key + L"\\Programmable", L""},
        {progId, kDescription},
        {progId + L"\\CLSID", id},
        {progId + L"\\CurVer", progIdOfVersion},
        {progIdOfVersion, kDescription},
        {progIdOfVersion + L"\\CLSID", id},
    };
}

LSTATUS write(const Entry& entry)
{
    return RegSetKeyValueW(HKEY_LOCAL_MACHINE, pathOf(entry.Key).c_str(), nullptr, REG_SZ,
                           entry.Value.c_str(), DWORD((entry.Value.size() + 1) * sizeof(wchar_t)));
}

bool remove(const std::wstring& key)
{
    const LSTATUS result = RegDeleteTreeW(HKEY_LOCAL_MACHINE, pathOf(key).c_str());
    return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND;
}

bool removeEntries()
{
    bool done = true;
    for (const std::wstring& key :
         {classKey(), std::wstring(kProgId), std::wstring(kProgIdOfVersion)})
        done = remove(key) && done;
    return done;
}

bool isThere(const std::wstring& key)
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, pathOf(key).c_str(), 0, KEY_READ, &opened) !=
        ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

std::wstring typeLibraryKey()
{
    return L"TypeLib\\" + textOf(LIBID_TradeForms);
}

HRESULT registerTypeLibrary()
{
    std::wstring path = Module::Path();
    ITypeLib* library = nullptr;
    const HRESULT loaded = LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library);
    if (FAILED(loaded))
        return loaded;
    const HRESULT registered = RegisterTypeLib(library, path.data(), nullptr);
    library->Release();
    return registered;
}

bool removeTypeLibrary()
{
    if (!isThere(typeLibraryKey()))
        return true;
    return SUCCEEDED(UnRegisterTypeLib(LIBID_TradeForms, kMajor, kMinor, LOCALE_NEUTRAL, kSystem));
}

} // namespace

HRESULT RegisterServer()
{
    for (const Entry& entry : entries()) {
        if (write(entry) != ERROR_SUCCESS) {
            removeEntries();
            return SELFREG_E_CLASS;
        }
    }
    if (FAILED(registerTypeLibrary())) {
        UnregisterServer();
        return SELFREG_E_TYPELIB;
    }
    return S_OK;
}

HRESULT UnregisterServer()
{
    const bool classGone = removeEntries();
    if (!removeTypeLibrary())
        return SELFREG_E_TYPELIB;
    return classGone ? S_OK : SELFREG_E_CLASS;
}

} // namespace TradeForms
