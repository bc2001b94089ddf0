#pragma once

#include <QDialog>

namespace Host {

/// Shows the keys of the menu and of the library's forms.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent);
};

} // namespace Host
