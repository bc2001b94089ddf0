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

void sayNothing(QtMsgType, const QMessageLogContext&, const QString&) {}

/// Never deleted: the windows in it live as long as the host's process. Neither its end nor the
/// going of this library is a moment at which windows could be destroyed in order.
void makeApplication()
{
    static char name[] = "TradeForms";
    static char* arguments[] = {name, nullptr};
    static int count = 1;

    Module::StayForGood();
    // How the process is scaled on the screen is the host's choice, which Qt leaves alone for a
    // plugin. But a plugin's fields, when they get the focus, also take it away from the host's
    // windows; so it is one no longer than that. Qt tells that it is late to say so.
    QCoreApplication::setAttribute(Qt::AA_PluginApplication, true);
    new QApplication(count, arguments);
    const QtMessageHandler told = qInstallMessageHandler(sayNothing);
    QCoreApplication::setAttribute(Qt::AA_PluginApplication, false);
    qInstallMessageHandler(told);
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
