#pragma once

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "stoch/Records.h"
#include "stoch/RunFiles.h"

namespace quarnel02 {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a run file. Throws FileAccess naming it.
FileHandle OpenRunFile(const std::filesystem::path& path, const char* mode);

/// Makes a run file anew. Throws FileAccess, also where something else has its name.
FileHandle MakeRunFile(const std::filesystem::path& path);

[[noreturn]] void ThrowRunFileError(const std::filesystem::path& path, const char* doing);

/// Writes a run file from record 1 on; a run file of that name is replaced. What reaches the disk
/// is whole records at any time, so that what a killed program leaves is known as a run file.
/// Without Close the file goes again.
template <class Record>
class RecordWriter {
  public:
    /// Throws FileAccess, also where something else has the name.
    explicit RecordWriter(std::filesystem::path path)
        : m_path(std::move(path)), m_file(MakeRunFile(m_path)) {
        (void)std::setvbuf(m_file.get(), m_buffer.data(), _IOFBF, m_buffer.size());
    }
    ~RecordWriter() {
        if (m_file) {
            Discard();
        }
    }
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;
    RecordWriter(RecordWriter&&) = delete;
    RecordWriter& operator=(RecordWriter&&) = delete;

    void Write(const Record& record) {
        const auto bytes = record.Pack();
        if (std::fwrite(bytes.data(), bytes.size(), 1, m_file.get()) != 1) {
            ThrowRunFileError(m_path, "written");
        }
    }

    /// Ends the file. Throws FileAccess when its end cannot be written.
    void Close() {
        if (std::fclose(m_file.release()) != 0) {
            const int reason = errno;
            Discard();
            errno = reason;
            ThrowRunFileError(m_path, "written");
        }
    }

  private:
    void Discard() noexcept {
        m_file.reset();
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }

    static constexpr std::size_t kRecordsInBuffer = 200;

    std::filesystem::path m_path;
    std::array<char, Record::kSize * kRecordsInBuffer> m_buffer{};  ///< outlives the file
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
