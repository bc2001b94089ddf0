#include "entry/com/CallFailure.h"

#include "data/ado/Dispatch.h"

#include <olectl.h>

#include <new>

namespace TradeForms {

namespace {

constexpr const wchar_t* kSource = L"TradeForms.Forms";
constexpr HRESULT kTypeMismatch = STD_CTL_SCODE(13);

HRESULT failureNumber(int number)
{
    return FAILED(number) ? HRESULT(number) : E_FAIL;
}

BSTR bstrOf(const QString& text)
{
    return SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.utf16()), UINT(text.size()));
}

} // namespace

CallFailure::CallFailure(const QString& description, HRESULT result)
    : Failure(description), result_(result)
{
}

CallFailure::~CallFailure() = default;

FailureReport FailureReport::OfCurrentException()
{
    try {
        throw;
    } catch (const CallFailure& failure) {
        return {failure.Result(), failure.Description()};
    } catch (const OverflowFailure& failure) {
        return {CTL_E_OVERFLOW, failure.Description()};
    } catch (const TypeMismatchFailure& failure) {
        return {kTypeMismatch, failure.Description()};
    } catch (const DispatchFailure& failure) {
        return {failureNumber(failure.Number()), failure.Description()};
    } catch (const ProviderFailure& failure) {
        return {failureNumber(failure.Number()), failure.Description()};
    } catch (const Failure& failure) {
        return {E_FAIL, failure.Description()};
    } catch (const std::bad_alloc&) {
        return {E_OUTOFMEMORY, QStringLiteral("Out of memory")};
    } catch (const std::exception& failure) {
        return {E_UNEXPECTED, QString::fromUtf8(failure.what())};
    } catch (...) {
        return {E_UNEXPECTED, QStringLiteral("Unknown failure")};
    }
}

HRESULT FailureReport::Publish(REFIID interfaceId) const
{
    ICreateErrorInfo* creation = nullptr;
    if (FAILED(CreateErrorInfo(&creation)))
        return Result;
    std::wstring source = kSource;
    std::wstring description = Description.toStdWString();
    creation->SetGUID(interfaceId);
    creation->SetSource(source.data());
    creation->SetDescription(description.data());
    IErrorInfo* error = nullptr;
    if (SUCCEEDED(creation->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&error)))) {
        SetErrorInfo(0, error);
        error->Release();
    }
    creation->Release();
    return Result;
}

HRESULT FailureReport::Fill(EXCEPINFO* told) const
{
    if (!told)
        return Result;
    *told = {};
    told->scode = Result;
    told->bstrSource = SysAllocString(kSource);
    told->bstrDescription = bstrOf(Description);
    return DISP_E_EXCEPTION;
}

} // namespace TradeForms
