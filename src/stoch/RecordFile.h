#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <utility>

#include "stoch/Records.h"

namespace quarnel02 {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a run file. Throws FileAccess naming it.
FileHandle OpenRunFile(const std::filesystem::path& path, const char* mode);

[[noreturn]] void ThrowRunFileError(const std::filesystem::path& path, const char* doing);

/// Writes a run file from record 1 on; a file of that name is replaced.
template <class Record>
class RecordWriter {
  public:
    explicit RecordWriter(std::filesystem::path path)
        : m_path(std::move(path)), m_file(OpenRunFile(m_path, "wb")) {}

    void Write(const Record& record) {
        const auto bytes = record.Pack();
        if (std::fwrite(bytes.data(), bytes.size(), 1, m_file.get()) != 1) {
            ThrowRunFileError(m_path, "written");
        }
    }

    /// Ends the file; without it a failing write at the end goes unseen. Throws FileAccess.
    void Close() {
        if (std::fclose(m_file.release()) != 0) {
            ThrowRunFileError(m_path, "written");
        }
    }

  private:
    std::filesystem::path m_path;
    FileHandle m_file;
};

/// Reads a run file record by record.
template <class Record>
class RecordReader {
  public:
    explicit RecordReader(std::filesystem::path path)
        : m_path(std::move(path)), m_file(OpenRunFile(m_path, "rb")) {}

    /// Reads the next record; false behind the last one. Throws FileAccess.
    bool Read(Record& record) {
        RecordBytes<Record::kSize> bytes;
        if (std::fread(bytes.data(), bytes.size(), 1, m_file.get()) == 1) {
            record.Read(bytes);
            return true;
        }
        if (std::ferror(m_file.get()) != 0) {
            ThrowRunFileError(m_path, "read");
        }
        return false;
    }

  private:
    std::filesystem::path m_path;
    FileHandle m_file;
};

}  // namespace quarnel02
