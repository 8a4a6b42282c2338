#pragma once

#include <QLockFile>
#include <filesystem>

namespace quarnel02 {

/// The lock file "quarnel02.lock" that keeps a second program out of an application directory: two
/// programs on one working copy would overwrite each other's model. Released when the object goes.
class ProgramLock {
  public:
    enum class Result { Held, Running, NotWritable };

    explicit ProgramLock(const std::filesystem::path& directory);

    /// Running only while a living program holds the lock: a file that is damaged, empty, or was
    /// left by a program that is gone, on this computer or another, is no lock. NotWritable too
    /// when something else than a file stands in its place. Never waits.
    Result Take();

    [[nodiscard]] const std::filesystem::path& File() const { return m_file; }

  private:
    std::filesystem::path m_file;
    QLockFile m_lock;
};

}  // namespace quarnel02
