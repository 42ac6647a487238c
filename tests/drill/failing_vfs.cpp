// SPDX-License-Identifier: MIT
#include "tests/drill/failing_vfs.h"

#include <sqlite3.h>

#include <cstring>

namespace drill {

namespace {

int g_calls = 0;
int g_failing = 0;

bool Fails()
{
    return ++g_calls >= g_failing && g_failing > 0;
}

/// A file of the system's own behind the counter.
struct File
{
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_file* Real(sqlite3_file* file)
{
    return reinterpret_cast<File*>(file)->real;
}

int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 at)
{
    return Fails() ? SQLITE_FULL : Real(file)->pMethods->xWrite(Real(file), bytes, size, at);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size)
{
    return Fails() ? SQLITE_IOERR_TRUNCATE : Real(file)->pMethods->xTruncate(Real(file), size);
}

int Sync(sqlite3_file* file, int flags)
{
    return Fails() ? SQLITE_IOERR_FSYNC : Real(file)->pMethods->xSync(Real(file), flags);
}

int Close(sqlite3_file* file)
{
    const int result = Real(file)->pMethods->xClose(Real(file));
    sqlite3_free(Real(file));
    return result;
}

/// The other calls go through.
const sqlite3_io_methods kMethods{
    3,
    Close,
    [](sqlite3_file* file, void* bytes, int size, sqlite3_int64 at) {
        return Real(file)->pMethods->xRead(Real(file), bytes, size, at);
    },
    Write,
    Truncate,
    Sync,
    [](sqlite3_file* file, sqlite3_int64* size) { return Real(file)->pMethods->xFileSize(Real(file), size); },
    [](sqlite3_file* file, int lock) { return Real(file)->pMethods->xLock(Real(file), lock); },
    [](sqlite3_file* file, int lock) { return Real(file)->pMethods->xUnlock(Real(file), lock); },
    [](sqlite3_file* file, int* held) { return Real(file)->pMethods->xCheckReservedLock(Real(file), held); },
    [](sqlite3_file* file, int code, void* argument) {
        return Real(file)->pMethods->xFileControl(Real(file), code, argument);
    },
    [](sqlite3_file* file) { return Real(file)->pMethods->xSectorSize(Real(file)); },
    [](sqlite3_file* file) { return Real(file)->pMethods->xDeviceCharacteristics(Real(file)); },
    [](sqlite3_file* file, int page, int size, int extend, void volatile** memory) {
        return Real(file)->pMethods->xShmMap(Real(file), page, size, extend, memory);
    },
    [](sqlite3_file* file, int offset, int count, int flags) {
        return Real(file)->pMethods->xShmLock(Real(file), offset, count, flags);
    },
    [](sqlite3_file* file) { Real(file)->pMethods->xShmBarrier(Real(file)); },
    [](sqlite3_file* file, int remove) { return Real(file)->pMethods->xShmUnmap(Real(file), remove); },
    [](sqlite3_file*, sqlite3_int64, int, void** page) {
        *page = nullptr;
        return SQLITE_OK;
    },
    [](sqlite3_file*, sqlite3_int64, void*) { return SQLITE_OK; },
};

int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* out)
{
    auto* system = static_cast<sqlite3_vfs*>(vfs->pAppData);
    auto* ours = reinterpret_cast<File*>(file);
    ours->real = static_cast<sqlite3_file*>(sqlite3_malloc(system->szOsFile));
    std::memset(ours->real, 0, static_cast<std::size_t>(system->szOsFile));
    const int result = system->xOpen(system, name, ours->real, flags, out);
    ours->base.pMethods = result == SQLITE_OK ? &kMethods : nullptr;
    if (result != SQLITE_OK)
        sqlite3_free(ours->real);
    return result;
}

}  // namespace

void UseFailingDisk()
{
    static sqlite3_vfs vfs;
    sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
    vfs = *system;
    vfs.zName = "failing";
    vfs.szOsFile = sizeof(File);
    vfs.pAppData = system;
    vfs.xOpen = Open;
    sqlite3_vfs_register(&vfs, 1);
}

void FailDiskCall(int number)
{
    g_calls = 0;
    g_failing = number;
}

int DiskCalls()
{
    return g_calls;
}

}  // namespace drill
