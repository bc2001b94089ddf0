#include "support/windows/library/HostConnectionLibrary.h"

#include "data/Failure.h"
#include "data/sqlite/CompanyFile.h"
#include "support/windows/HostConnection.h"

#include <cstdio>

using namespace TradeForms;

HRESULT CreateHostConnection(const wchar_t* file, IDispatch** connection)
{
    *connection = nullptr;
    try {
        *connection = new tests::HostConnection(OpenCompanyFile(QString::fromWCharArray(file)));
        return S_OK;
    } catch (const Failure& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return E_FAIL;
    }
}
