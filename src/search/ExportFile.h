#pragma once

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

namespace TradeForms {

/// A file that replaces its target only when it is complete.
class ExportFile {
public:
    /// Raises Failure where the folder is not writable.
    explicit ExportFile(const QString& file);

    /// Raises Failure where the disk is full.
    void Write(QByteArrayView bytes);
    /// Renames the file to its target. Without it the file is removed. Raises Failure.
    void Commit();

    /// Raises a Failure that tells the user which file cannot be written, with the system's
    /// message.
    [[noreturn]] static void Fail(const QString& file, const QString& reason);

private:
    QSaveFile file_;
};

} // namespace TradeForms
