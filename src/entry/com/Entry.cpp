// The four doors of the library, and the one through which the system itself comes.

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

// The module's entry point. When the host's process ends its other threads are gone and other
// libraries may be: windows, the application and the host's own objects cannot be destroyed in
// order any more, and need not be. So nothing is.
BOOL WINAPI TradeFormsEntry(HINSTANCE instance, DWORD reason, void* processEnds)
{
    if (reason == DLL_PROCESS_DETACH && processEnds)
        return TRUE;
    return DllMainCRTStartup(instance, reason, processEnds);
}

} // extern "C"
