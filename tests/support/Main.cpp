#include "support/ExpectedBoxes.h"

#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

#ifndef _WIN32
#include <langinfo.h>

#include <clocale>
#endif

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#ifndef _WIN32
    // Without a locale set, the tests' ODBC driver accepts only ASCII letters.
    std::setlocale(LC_ALL, "");
    if (qstrcmp(nl_langinfo(CODESET), "UTF-8") != 0)
        qputenv("LC_ALL", "C.UTF-8");
#endif
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    // Closing the last window must not end the application in the middle of a test.
    QApplication::setQuitOnLastWindowClosed(false);
#ifdef _WIN32
    // On Windows, an event loop of the offscreen platform that was entered from the handler of a
    // window event can sleep although window events are pending. The timer wakes it up.
    QTimer alarm;
    alarm.start(5);
#endif
    // An unexpected box fails its test instead of waiting for a user.
    const TradeForms::ExpectedBoxes noBoxes;
    const TradeForms::ExpectedDialogs noDialogs;
    return RUN_ALL_TESTS();
}
