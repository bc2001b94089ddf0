#pragma once

#include <TradeForms/Forms.h>

#include <QString>
#include <QStringList>

#include <span>

namespace Host {

enum class ScreenGroup { Stock, Installment, Payroll };

/// One screen of the library, as this host offers it.
struct Screen {
    const char* Method; ///< name of the method of Forms; `--open` takes it
    const char* Key;    ///< key of the rights on the screen
    const char* Urdu;   ///< caption, UTF-8
    const char* English;
    ScreenGroup Group;
    void (TradeForms::Forms::*Open)();
};

/// All screens in the order of the menu. A screen's number is its index, from 1.
std::span<const Screen> Screens();

/// The screen that a method of Forms shows (in any case of letters), or null.
const Screen* FindScreen(const QString& method);

/// The names that FindScreen accepts.
QStringList ScreenMethods();

QString GroupUrdu(ScreenGroup group);
QString GroupEnglish(ScreenGroup group);

} // namespace Host
