#pragma once

#include "controls/Buttons.h"
#include "controls/DTPicker.h"
#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/MsgBox.h"
#include "controls/Txt.h"
#include "support/ExpectedBoxes.h"
#include "support/Keys.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include <ostream>

/// Lets failures of assertions print the text.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << '[' << texts.join(QStringLiteral(", ")).toStdString() << ']';
}
inline void PrintTo(const QDate& date, std::ostream* out)
{
    *out << date.toString(Qt::ISODate).toStdString();
}

namespace TradeForms {

using tests::s;

/// A form with three fields, a date, a button and a grid, which logs its events.
class Desk : public Form {
    Q_OBJECT
public:
    Desk();

    /// Returns and clears the events logged since the last call: "A.Validate", "B.GotFocus(B)" and
    /// so on, with the control that was active at the time in brackets.
    QStringList TakeLog() { return std::exchange(log, {}); }
    void Note(const QString& what) { log << what; }

    Txt& A;
    Txt& B;
    UTxt& C;
    DTPicker& Date;
    JeweledButton& Btn;
    Grid& Rows;
    Label& Words;

    QStringList log;
    QStringList failures; ///< the texts of the exceptions passed to HandlerFailed
    std::function<void(KeyPress&)> onKeyDown;
    std::function<void()> onKeyPress;
    std::function<void(bool&)> onQueryUnload;

protected:
    void FormKeyDown(KeyPress& key) override;
    void FormKeyPress() override;
    void QueryUnload(bool& cancel) override;
    void HandlerFailed(const std::exception& failure) override;

private:
    template <typename T> T& Add(T* control);

    QVBoxLayout* column_;
};

/// Provides each test with a desk that is shown and active; the log is empty and A has the focus.
class DeskTest : public ::testing::Test {
protected:
    DeskTest();

    bool IsActive(const Control& control) const { return desk.IsActive(control); }

    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    Desk desk;
};

} // namespace TradeForms
