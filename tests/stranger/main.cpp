#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <TradeForms/Connection.h>
#include <TradeForms/Forms.h>
#include <TradeForms/Printing.h>
#include <TradeForms/UserSecurity.h>

#include <cstdio>

struct Owner : TradeForms::UserSecurity {
    bool HasRight(const QString&, std::optional<std::int16_t>, std::optional<std::int16_t>) override
    {
        return true;
    }
    bool UserFlagA() const override { return false; }
    bool AllowPostedEdit() const override { return true; }
    bool IsAdministrator() const override { return true; }
    std::int16_t UserNumber() const override { return 1; }
    QString UserBranchCode() const override { return QStringLiteral("0"); }
};

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    TradeForms::Forms forms;
    forms.InitializeClass(TradeForms::Connection::Open(QString::fromLocal8Bit(argv[1]),
                                                       TradeForms::Connection::Mode::Create));
    forms.InitializeSecurity(std::make_shared<Owner>());
    TradeForms::Printing::UseReceiver([](const TradeForms::PrintJob& job, const QByteArray& pdf) {
        std::printf("print: %s, %d bytes\n", qPrintable(job.Title), int(pdf.size()));
    });
    forms.GatePassForm();
    QTimer::singleShot(200, [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            if (window->isVisible()) {
                std::printf("open: %s\n", qPrintable(window->windowTitle()));
                window->close();
            }
        }
        QApplication::quit();
    });
    return QApplication::exec();
}
