#include "app/ProgramLock.h"

#include "app/QtPaths.h"

namespace quarnel02 {

ProgramLock::ProgramLock(const std::filesystem::path& directory)
    : m_file(directory / "quarnel02.lock"), m_lock(ToQString(m_file)) {
    m_lock.setStaleLockTime(0);  // the age of a lock says nothing
}

/// What the file says does not count, only whether somebody has it locked: the system drops that
/// lock with the program, however it ends.
ProgramLock::Result ProgramLock::Take() {
    const FileKind kind = KindOfFile(m_file);
    if (kind != FileKind::Missing && kind != FileKind::Ordinary) {
        return Result::NotWritable;
    }
    if (m_lock.tryLock(0)) {
        return Result::Held;
    }
    if (m_lock.error() == QLockFile::LockFailedError && m_lock.removeStaleLockFile() &&
        m_lock.tryLock(0)) {
        return Result::Held;
    }
    return m_lock.error() == QLockFile::LockFailedError ? Result::Running : Result::NotWritable;
}

}  // namespace quarnel02
