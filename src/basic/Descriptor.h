#pragma once

// Internal to basic/: open files and what is said when they fail.

#include <filesystem>
#include <string>
#include <string_view>

namespace quarnel02 {

/// An open file that is closed again whatever happens.
class Descriptor {
  public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;

    /// Below 0 when the file could not be opened.
    [[nodiscard]] int Number() const { return m_number; }

    /// What close() says; 0 when there is nothing to close.
    int Close();

  private:
    int m_number;
};

/// "Cannot write /a/b: ..." for an error number of the system. FileNotFound for a file or
/// directory that is missing, else FileAccess.
[[noreturn]] void ThrowFileError(const std::string& doing, const std::filesystem::path& path,
                                 int code);
[[noreturn]] void ThrowNotOrdinary(const std::string& doing, const std::filesystem::path& path);

/// Writes everything at the file's position. Throws in the name of `target`.
void WriteAll(int descriptor, std::string_view content, const std::filesystem::path& target);

}  // namespace quarnel02
