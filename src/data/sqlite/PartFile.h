#pragma once

#include "data/Backup.h"

#include <QLockFile>
#include <QString>

namespace TradeForms {

/// A temporary file beside a target, which is renamed to the target when it is complete and deleted
/// by the destructor otherwise. Where the program is killed meanwhile, the next part file for the
/// same target deletes it.
class PartFile {
public:
    /// Locks the name of the temporary file, which is still to be created. Raises Failure where the
    /// target exists and is to be kept, where its folder is missing or read-only, and where another
    /// program writes the same target.
    PartFile(const QString& place, Existing existing);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// The target; where it is a link, the file to which it leads.
    const QString& Place() const { return place_; }
    const QString& Path() const { return path_; }
    /// Raises Failure where the disk has less free space than this.
    void RequireSpace(qint64 bytes) const;
    /// Renames the file to the target in one step. Raises Failure.
    void MoveToTarget();

    /// Deletes the temporary file of a program that has ended. Returns false where another program
    /// still writes it, or where it cannot be deleted.
    static bool RemoveLeftover(const QString& path);
    /// The name of the temporary file for a target.
    static QString NameFor(const QString& place) { return place + QStringLiteral(".part"); }

private:
    QString place_;
    QString path_;
    QLockFile lock_;
    Existing existing_;
    bool isPlaced_ = false;
};

} // namespace TradeForms
