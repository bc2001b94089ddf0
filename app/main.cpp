#include "Options.h"
#include "Run.h"

#include <TradeForms/Version.h>

#include <QApplication>

#include <iostream>

namespace {

Host::Options readOptions(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return Host::ReadOptions(QCoreApplication::arguments());
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("TradeForms"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TRADEFORMS_VERSION));

    // Actions that need no display run without one.
    using Action = Host::Options::Action;
    const Host::Options options = readOptions(argc, argv);
    switch (options.Wanted) {
    case Action::ShowHelp:
        std::cout << options.Message.toStdString();
        return Host::ExitDone;
    case Action::ShowVersion:
        std::cout << "tradeforms-host " << TRADEFORMS_VERSION << '\n';
        return Host::ExitDone;
    case Action::Refuse:
        std::cerr << "tradeforms-host: " << options.Message.toStdString() << '\n';
        return Host::ExitWrongOptions;
    case Action::CreateSample: {
        const QCoreApplication application(argc, argv);
        return Host::CreateSampleCompany(options);
    }
    case Action::AddAdministrator: {
        const QCoreApplication application(argc, argv);
        return Host::AddFirstAdministrator(options);
    }
    case Action::Run:
        break;
    }
    const QApplication application(argc, argv);
    return Host::RunHost(options);
}
