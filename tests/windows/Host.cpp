#include "Host.h"

#include "Clerk.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <memory>

namespace windows_host {

namespace {

constexpr UINT kDo = WM_APP + 1;
constexpr UINT kPost = WM_APP + 2;
constexpr UINT kQuit = WM_APP + 3;
constexpr WORD kAccelerated = 100;
constexpr WORD kButton = IDOK;

HWND makeWindow(const wchar_t* title, int x, int y, int width, int height)
{
    return CreateWindowExW(0, L"WindowsHost", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, y, width,
                           height, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

HWND makeChild(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style, int y, WORD id)
{
    return CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 8, y, 120, 22,
                           parent, reinterpret_cast<HMENU>(UINT_PTR(id)), GetModuleHandleW(nullptr),
                           nullptr);
}

INT_PTR CALLBACK dialogProcedure(HWND dialog, UINT message, WPARAM wide, LPARAM)
{
    if (message != WM_COMMAND || LOWORD(wide) != kButton || HIWORD(wide) != BN_CLICKED)
        return FALSE;
    ++*reinterpret_cast<int*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    return TRUE;
}

} // namespace

Host::Host()
{
    WNDCLASSW kind{};
    kind.lpfnWndProc = procedure;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"WindowsHost";
    kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClassW(&kind);

    Disabled = makeWindow(L"Disabled by the host", 0, 400, 200, 100);
    EnableWindow(Disabled, FALSE);
    Second = makeWindow(L"Second", 0, 300, 200, 100);
    makeDialog();
    Main = makeWindow(L"Host", 0, 0, 300, 150);
    SetForegroundWindow(Main);

    // What a form lives by, and a letter that is typed.
    ACCEL keys[] = {
        {FVIRTKEY, VK_F1, kAccelerated},
        {FVIRTKEY, VK_RETURN, kAccelerated},
        {FVIRTKEY, VK_ESCAPE, kAccelerated},
        {FVIRTKEY, VK_TAB, kAccelerated},
        {FVIRTKEY, VK_DOWN, kAccelerated},
        {FVIRTKEY | FCONTROL, 'S', kAccelerated},
        {FVIRTKEY | FCONTROL, 'Q', kAccelerated},
        {FVIRTKEY | FCONTROL, 'O', kAccelerated},
        {FVIRTKEY | FCONTROL, 'W', kAccelerated},
        {FVIRTKEY, '2', kAccelerated},
        {0, 'k', kAccelerated},
    };
    accelerators_ = CreateAcceleratorTableW(keys, int(std::size(keys)));
}

Host::~Host()
{
    for (const HWND window : {Dialog, Second, Disabled, Main})
        if (IsWindow(window))
            DestroyWindow(window);
    // The quit message of the main window's going is not the next test's.
    MSG quit;
    PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    DestroyAcceleratorTable(accelerators_);
}

void Host::makeDialog()
{
    struct {
        DLGTEMPLATE Template;
        WORD Menu, Class, Title;
    } described{{WS_CAPTION | WS_POPUP | WS_VISIBLE | WS_SYSMENU, 0, 0, 160, 100, 90, 70}, 0, 0, 0};
    Dialog = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &described.Template, nullptr,
                                        dialogProcedure, 0);
    SetWindowLongPtrW(Dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&Pressed));
    SetWindowTextW(Dialog, L"Host's dialog");
    FirstField = makeChild(Dialog, L"EDIT", L"", WS_BORDER, 8, 200);
    SecondField = makeChild(Dialog, L"EDIT", L"", WS_BORDER, 36, 201);
    makeChild(Dialog, L"BUTTON", L"OK", BS_DEFPUSHBUTTON, 64, kButton);
}

LRESULT CALLBACK Host::procedure(HWND window, UINT message, WPARAM wide, LPARAM lng)
{
    switch (message) {
    case kDo:
        (*reinterpret_cast<const std::function<void()>*>(lng))();
        return 0;
    case kPost: {
        const std::unique_ptr<std::function<void()>> work(
            reinterpret_cast<std::function<void()>*>(lng));
        (*work)();
        return 0;
    }
    case kQuit:
        PostQuitMessage(0);
        return 0;
    case WM_DESTROY:
        if (GetWindowLongPtrW(window, GWLP_USERDATA))
            PostQuitMessage(0);
        return 0;
    case WM_COMMAND:
        if (auto* host = reinterpret_cast<Host*>(GetWindowLongPtrW(window, GWLP_USERDATA));
            host && LOWORD(wide) == kAccelerated)
            ++host->Accelerated;
        return 0;
    default:
        return DefWindowProcW(window, message, wide, lng);
    }
}

void Host::Run(const std::function<void()>& clerk)
{
    std::thread working([&] {
        clerk();
        PostMessageW(Main, kQuit, 0, 0);
    });
    Loop();
    working.join();
}

// Every message goes past the accelerators and the dialog first, whosever window it is for.
int Host::Loop()
{
    SetWindowLongPtrW(Main, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        const bool isInDialog = message.hwnd == Dialog || IsChild(Dialog, message.hwnd);
        if (!isInDialog && TranslateAcceleratorW(Main, accelerators_, &message))
            continue;
        if (IsDialogMessageW(Dialog, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return int(message.wParam);
}

bool Host::See()
{
    return clerk::Await(
        "a window of the host's",
        [this] {
            const HWND front = GetForegroundWindow();
            return front && (front == Main || front == Second || front == Dialog);
        });
}

void Host::Do(const std::function<void()>& work)
{
    SendMessageW(Main, kDo, 0, reinterpret_cast<LPARAM>(&work));
}

void Host::Post(std::function<void()> work)
{
    auto* posted = new std::function<void()>(std::move(work));
    PostMessageW(Main, kPost, 0, reinterpret_cast<LPARAM>(posted));
}

std::wstring CompanyFile()
{
    const wchar_t* file = _wgetenv(L"COMPANY");
    EXPECT_TRUE(file) << "the variable COMPANY names no file";
    return file ? file : L"";
}

Ptr<IDispatch> OpenConnection()
{
    using Create = HRESULT (*)(const wchar_t* file, IDispatch** connection);
    const HMODULE library = LoadLibraryW(_wgetenv(L"HOST_CONNECTION"));
    EXPECT_TRUE(library) << "the variable HOST_CONNECTION names no library";
    Ptr<IDispatch> connection;
    if (library) {
        const auto create = reinterpret_cast<Create>(
            reinterpret_cast<void*>(GetProcAddress(library, "CreateHostConnection")));
        EXPECT_TRUE(create) << "it gives out no such function";
        if (create)
            EXPECT_EQ(create(CompanyFile().c_str(), connection.GetAddressOf()), S_OK);
    }
    return connection;
}

std::wstring Rows(IDispatch* connection, const std::wstring& statement)
{
    const Outcome executed = Call(connection, L"Execute", {Value(statement)});
    EXPECT_EQ(executed.Result, S_OK) << "of a statement";
    IDispatch* rows = executed.Answer.Object();
    std::wstring found;
    if (!rows || Get(rows, L"EOF").Text() != L"False")
        return found;
    Value block = Get(rows, L"GetRows", {Value(1000)});
    SAFEARRAY* cells = V_ARRAY(&block);
    LONG lastField = 0, lastRow = 0;
    SafeArrayGetUBound(cells, 1, &lastField);
    SafeArrayGetUBound(cells, 2, &lastRow);
    for (LONG row = 0; row <= lastRow; ++row) {
        for (LONG field = 0; field <= lastField; ++field) {
            LONG at[] = {field, row};
            Value cell;
            SafeArrayGetElement(cells, at, &cell);
            found += (field > 0 ? L"|" : row > 0 ? L" " : L"") + cell.Text();
        }
    }
    return found;
}

Session::Session()
{
    Ptr<IDispatch> connection = OpenConnection();
    IDispatch* given = connection.Get();
    EXPECT_EQ(Forms->InitializeClass(&given), S_OK);
    IDispatch* user = &User;
    EXPECT_EQ(Forms->InitializeSecurity(&user), S_OK);
    BSTR logo = SysAllocString(L"");
    BSTR name = SysAllocString(L"المدینہ ٹریڈرز");
    EXPECT_EQ(Forms->InitializeLogo(&logo, &name), S_OK);
    SysFreeString(logo);
    SysFreeString(name);
    VARIANT_BOOL isServer = VARIANT_FALSE;
    EXPECT_EQ(Forms->InitializeServer(&isServer), S_OK);
}

} // namespace windows_host
