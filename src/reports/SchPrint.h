#pragma once

#include "controls/Buttons.h"
#include "controls/Caption.h"
#include "controls/Form.h"
#include "controls/Pieces.h"

#include <QList>
#include <QString>

class QGridLayout;

namespace TradeForms {

/// The choice of copies before printing. One shared instance: an option that one form hides
/// stays hidden until a form shows it again.
///
/// A form sets the options before it shows the dialog, so it calls Load first; Show does not load a
/// loaded dialog again.
class SchPrint : public Form {
    Q_OBJECT
public:
    SchPrint();
    ~SchPrint() override;

    static SchPrint& Shared();

    /// What was chosen: "1", "2", "3", or "B" for all copies; empty where the dialog was left
    /// without a choice.
    QString ParaOutPrint;

    /// Loads the dialog, if it is not: the choice is "1".
    void Load();
    /// Shows or hides an option together with its caption.
    void SetOptionVisible(OptionButton& option, bool visible);
    /// Makes an option the choice, as a click on it does.
    void ClickOption(OptionButton& option);
    /// Shows the dialog modally over the owner and returns when it has been unloaded.
    void Show(QWidget* owner);

    /// Returns Option1 to Option4 by number. Raises std::out_of_range for another number.
    OptionButton& Option(int number) const;
    OptionButton& Option1; ///< Copy One
    OptionButton& Option2; ///< Copy Two
    OptionButton& Option3; ///< Copy Three
    OptionButton& Option4; ///< All Copies
    JeweledButton& BtnSelect;
    JeweledButton& BtnClose;

protected:
    void FormKeyDown(KeyPress& key) override;

private:
    struct Choice {
        OptionButton& Option;
        QString Code;
        Label& Urdu;
        Label& English;
    };

    Choice choice(OptionButton& option, const char* code, const Caption& caption);
    void compose();
    void addRow(QGridLayout& grid, const Choice& choice);
    void attach();
    void select();

    QList<Choice> choices_;
    bool loaded_ = false;
    bool selected_ = false; ///< left by BtnSelect or Enter
};

} // namespace TradeForms
