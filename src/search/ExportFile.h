#pragma once

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

namespace TradeForms {

/// A file that takes its place only when it is whole.
class ExportFile {
public:
    /// Raises Failure where the folder takes no file.
    explicit ExportFile(const QString& file);

    /// Raises Failure where there is no room.
    void Write(QByteArrayView bytes);
    /// Puts the file in its place. Without it nothing is left.
    void Commit();

    /// Words for the user, and what the system says.
    [[noreturn]] static void Fail(const QString& file, const QString& reason);

private:
    QSaveFile file_;
};

} // namespace TradeForms
