#include "entry/com/Workplace.h"

#include "controls/ModalScope.h"
#include "entry/com/CallFailure.h"
#include "entry/com/HostLoop.h"
#include "entry/com/HostWindows.h"
#include "entry/com/Module.h"

#include <QApplication>
#include <QtPlugin>

#include <windows.h>

#include <atomic>
#include <memory>

// A library of its own has no other place for what Qt would load from files.
Q_IMPORT_PLUGIN(QWindowsIntegrationPlugin)
Q_IMPORT_PLUGIN(QWindowsVistaStylePlugin)

namespace TradeForms::Workplace {

namespace {

std::atomic<DWORD> thread = 0;

void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

/// The application is never deleted: windows cannot be destroyed safely while the host's process
/// ends or unloads this library.
void makeApplication()
{
    static char name[] = "TradeForms";
    static char* arguments[] = {name, nullptr};
    static int count = 1;

    Module::StayForGood();
    // Set only while the application is created: DPI awareness is the host's choice, which Qt
    // leaves alone in a plugin application. It is reset afterwards, since in a plugin application a
    // field that gets the focus also takes it from the host's windows. Qt warns that the attribute
    // is set late.
    QCoreApplication::setAttribute(Qt::AA_PluginApplication, true);
    new QApplication(count, arguments);
    const QtMessageHandler previous = qInstallMessageHandler(ignoreMessage);
    QCoreApplication::setAttribute(Qt::AA_PluginApplication, false);
    qInstallMessageHandler(previous);
    QApplication::setQuitOnLastWindowClosed(false);
    new HostLoop;
    Modal::SetBarrier([] { return std::make_shared<ClosedHostWindows>(); });
}

} // namespace

void Enter()
{
    const DWORD here = GetCurrentThreadId();
    DWORD first = 0;
    if (thread.compare_exchange_strong(first, here))
        makeApplication();
    else if (first != here)
        throw CallFailure(QStringLiteral("The windows of TradeForms live on the thread that called "
                                         "it first. Call it on that thread."),
                          RPC_E_WRONG_THREAD);
}

void Leave()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace TradeForms::Workplace
