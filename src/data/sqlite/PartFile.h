#pragma once

#include "data/Backup.h"

#include <QLockFile>
#include <QString>

namespace TradeForms {

/// A copy in the making: a file beside its place, under a name of its own. It gets its place when
/// it is whole, and goes with this object otherwise. Where the program is killed meanwhile, the
/// next one for the same place removes what it left.
class PartFile {
public:
    /// Takes the name, under which the file is still to be made, and makes sure that the place can
    /// be taken. Raises Failure where it is taken and to be kept, where nothing can be written
    /// there, and where another program is at work on it.
    PartFile(const QString& place, Existing existing);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Where the file will stand: where the place is a link, what it leads to.
    const QString& Place() const { return place_; }
    const QString& Path() const { return path_; }
    /// Raises Failure where the disk has less room than this.
    void RequireSpace(qint64 bytes) const;
    /// Gives the file its place, in one step. Raises Failure.
    void MoveToTarget();

    /// Removes what was left for a place by a program that is gone. Raises Failure.
    static bool RemoveLeftover(const QString& path);
    /// How such files are called.
    static QString NameFor(const QString& place) { return place + QStringLiteral(".part"); }

private:
    QString place_;
    QString path_;
    QLockFile lock_;
    Existing existing_;
    bool isPlaced_ = false;
};

} // namespace TradeForms
