// The four exported functions of a COM library, and its entry point.

#include "entry/com/ClassFactory.h"
#include "entry/com/FormsObject.h"
#include "entry/com/Module.h"
#include "entry/com/Registration.h"

#include <windows.h>

extern "C" {

HRESULT WINAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (classId != CLSID_Forms)
        return CLASS_E_CLASSNOTAVAILABLE;
    return TradeForms::ClassFactory::Instance().QueryInterface(interfaceId, object);
}

HRESULT WINAPI DllCanUnloadNow()
{
    return TradeForms::Module::MayGo() ? S_OK : S_FALSE;
}

HRESULT WINAPI DllRegisterServer()
{
    return TradeForms::RegisterServer();
}

HRESULT WINAPI DllUnregisterServer()
{
    return TradeForms::UnregisterServer();
}

BOOL WINAPI DllMainCRTStartup(HINSTANCE instance, DWORD reason, void* processEnds);

// The module's entry point. When the process ends, its other threads are gone and other libraries
// may be unloaded, so windows, the application and the host's objects cannot be destroyed in order.
// They are left to the system.
BOOL WINAPI TradeFormsEntry(HINSTANCE instance, DWORD reason, void* processEnds)
{
    if (reason == DLL_PROCESS_DETACH && processEnds)
        return TRUE;
    return DllMainCRTStartup(instance, reason, processEnds);
}

} // extern "C"
