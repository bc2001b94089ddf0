#pragma once

#include <QDialog>

namespace Host {

/// The keys of the menu and of the library's forms, for reading.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent);
};

} // namespace Host
