#include "support/FaultyDisk.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <mutex>
#include <utility>

namespace {

/// A file of the faulty disk, in front of the real file, to which it forwards its calls.
struct File {
    sqlite3_file Base;

    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* realOf(sqlite3_file* file)
{
    return reinterpret_cast<File*>(file)->real();
}

struct State {
    sqlite3_vfs Disk{};
    sqlite3_vfs* Real = nullptr;
    FaultyDisk::Fault Fault = FaultyDisk::Fault::Error;
    FaultyDisk::Lasts Lasts = FaultyDisk::Lasts::Once;
    int Left = 0; ///< number of operations until one fails; 0 for none
    bool IsBroken = false;
    bool HasFailed = false;
    std::mutex Waiting; ///< guards WhenSomebodyWaits
    std::function<void()> WhenSomebodyWaits;
};

State& state()
{
    static State disk;
    return disk;
}

/// Counts an operation and returns whether it fails.
bool fails()
{
    State& disk = state();
    const bool isIt = disk.Left > 0 && --disk.Left == 0;
    if (isIt && disk.Lasts == FaultyDisk::Lasts::UntilRepaired)
        disk.IsBroken = true;
    const bool result = isIt || disk.IsBroken;
    if (result)
        disk.HasFailed = true;
    return result;
}

bool isFull()
{
    return state().Fault == FaultyDisk::Fault::Full;
}

template <auto Method, class... Arguments> int handOn(sqlite3_file* file, Arguments... arguments)
{
    sqlite3_file* real = realOf(file);
    return (real->pMethods->*Method)(real, arguments...);
}

int writeFile(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at)
{
    if (!fails())
        return handOn<&sqlite3_io_methods::xWrite>(file, bytes, count, at);
    handOn<&sqlite3_io_methods::xWrite>(file, bytes, count / 2, at);
    return isFull() ? SQLITE_FULL : SQLITE_IOERR_WRITE;
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    return fails() && !isFull() ? SQLITE_IOERR_TRUNCATE
                                : handOn<&sqlite3_io_methods::xTruncate>(file, size);
}

/// Counts a flush without performing it: the data stays in the operating system's cache, which
/// outlives the test.
int syncFile(sqlite3_file*, int)
{
    return fails() ? SQLITE_IOERR_FSYNC : SQLITE_OK;
}

/// Returns the result of a lock request unchanged; calls the function set by WhenSomebodyWaits if
/// the lock was refused.
int noteLock(int result)
{
    std::function<void()> deed;
    if (result == SQLITE_BUSY) {
        const std::lock_guard guard(state().Waiting);
        deed = std::exchange(state().WhenSomebodyWaits, nullptr);
    }
    if (deed)
        deed();
    return result;
}

void barrier(sqlite3_file* file)
{
    sqlite3_file* real = realOf(file);
    real->pMethods->xShmBarrier(real);
}

using Methods = sqlite3_io_methods;

constexpr Methods methods = {
    .iVersion = 3,
    .xClose = [](sqlite3_file* file) { return handOn<&Methods::xClose>(file); },
    .xRead = [](sqlite3_file* file, void* to, int count,
                sqlite3_int64 at) { return handOn<&Methods::xRead>(file, to, count, at); },
    .xWrite = writeFile,
    .xTruncate = truncateFile,
    .xSync = syncFile,
    .xFileSize = [](sqlite3_file* file,
                    sqlite3_int64* size) { return handOn<&Methods::xFileSize>(file, size); },
    .xLock = [](sqlite3_file* file,
                int lock) { return noteLock(handOn<&Methods::xLock>(file, lock)); },
    .xUnlock = [](sqlite3_file* file, int lock) { return handOn<&Methods::xUnlock>(file, lock); },
    .xCheckReservedLock = [](sqlite3_file* file,
                             int* is) { return handOn<&Methods::xCheckReservedLock>(file, is); },
    .xFileControl = [](sqlite3_file* file, int what,
                       void* with) { return handOn<&Methods::xFileControl>(file, what, with); },
    .xSectorSize = [](sqlite3_file* file) { return handOn<&Methods::xSectorSize>(file); },
    .xDeviceCharacteristics =
        [](sqlite3_file* file) { return handOn<&Methods::xDeviceCharacteristics>(file); },
    .xShmMap =
        [](sqlite3_file* file, int region, int size, int extend, void volatile** memory) {
            return handOn<&Methods::xShmMap>(file, region, size, extend, memory);
        },
    .xShmLock =
        [](sqlite3_file* file, int offset, int count, int flags) {
            return noteLock(handOn<&Methods::xShmLock>(file, offset, count, flags));
        },
    .xShmBarrier = barrier,
    .xShmUnmap = [](sqlite3_file* file,
                    int remove) { return handOn<&Methods::xShmUnmap>(file, remove); },
    .xFetch = [](sqlite3_file* file, sqlite3_int64 at, int count,
                 void** memory) { return handOn<&Methods::xFetch>(file, at, count, memory); },
    .xUnfetch = [](sqlite3_file* file, sqlite3_int64 at,
                   void* memory) { return handOn<&Methods::xUnfetch>(file, at, memory); },
};

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    State& disk = state();
    file->pMethods = nullptr;
    const int result = disk.Real->xOpen(disk.Real, name, realOf(file), flags, outFlags);
    if (realOf(file)->pMethods)
        file->pMethods = &methods;
    return result;
}

} // namespace

FaultyDisk::FaultyDisk()
{
    State& disk = state();
    if (disk.Real)
        ADD_FAILURE() << "one faulty disk at a time";
    disk.Disk = {};
    disk.Left = 0;
    disk.IsBroken = false;
    disk.HasFailed = false;
    disk.WhenSomebodyWaits = nullptr;
    disk.Real = sqlite3_vfs_find(nullptr);
    // All operations other than on files are the real system's, whose functions accept any
    // sqlite3_vfs.
    disk.Disk = *disk.Real;
    disk.Disk.szOsFile = int(sizeof(File)) + disk.Real->szOsFile;
    disk.Disk.zName = "faulty";
    disk.Disk.xOpen = openFile;
    sqlite3_vfs_register(&disk.Disk, 1);
}

FaultyDisk::~FaultyDisk()
{
    State& disk = state();
    sqlite3_vfs_unregister(&disk.Disk);
    sqlite3_vfs_register(disk.Real, 1);
    disk.Real = nullptr;
}

void FaultyDisk::FailAt(int operation, Fault fault, Lasts lasts)
{
    State& disk = state();
    disk.Fault = fault;
    disk.Lasts = lasts;
    disk.Left = operation;
    disk.IsBroken = false;
    disk.HasFailed = false;
}

void FaultyDisk::Repair()
{
    State& disk = state();
    disk.Left = 0;
    disk.IsBroken = false;
}

bool FaultyDisk::HasFailed() const
{
    return state().HasFailed;
}

void FaultyDisk::WhenSomebodyWaits(std::function<void()> deed)
{
    const std::lock_guard guard(state().Waiting);
    state().WhenSomebodyWaits = std::move(deed);
}
