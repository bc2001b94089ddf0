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
    // A bare machine names no language; the tests' ODBC driver then takes no letters but English
    // ones.
    std::setlocale(LC_ALL, "");
    if (qstrcmp(nl_langinfo(CODESET), "UTF-8") != 0)
        qputenv("LC_ALL", "C.UTF-8");
#endif
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    // A test closes windows as it likes.
    QApplication::setQuitOnLastWindowClosed(false);
#ifdef _WIN32
    // The offscreen platform there lets an event loop sleep although events of windows wait, where
    // it was entered from one of them.
    QTimer alarm;
    alarm.start(5);
#endif
    // A box that nobody expects fails its test, rather than wait for a user.
    const TradeForms::ExpectedBoxes noBoxes;
    const TradeForms::ExpectedDialogs noDialogs;
    return RUN_ALL_TESTS();
}
