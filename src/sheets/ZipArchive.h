#pragma once

// Internal to sheets/: the files inside a workbook.

#include <zip.h>

#include <functional>
#include <memory>
#include <pugixml.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quarnel02 {

/// Why a file is no workbook, to be put behind its name: "is damaged".
class DamagedWorkbook : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A zip archive in memory. Throws DamagedWorkbook for what is none.
class ZipArchive {
  public:
    /// The content must outlive the archive.
    explicit ZipArchive(std::string_view content);

    [[nodiscard]] bool Has(const std::string& name) const;
    /// A file of the archive, unpacked and checked. Throws DamagedWorkbook when it is missing,
    /// damaged or larger than that of any model.
    [[nodiscard]] std::string Read(const std::string& name) const;
    /// The same as XML, blanks kept. Throws DamagedWorkbook also for a tree that would take more
    /// memory than that of any model.
    [[nodiscard]] pugi::xml_document ReadXml(const std::string& name) const;

  private:
    /// Unpacks a file into the place that `room` gives for so many bytes.
    void Unpack(const std::string& name, const std::function<char*(std::size_t)>& room) const;

    struct Discard {
        void operator()(zip_t* archive) const { zip_discard(archive); }
    };
    std::unique_ptr<zip_t, Discard> m_archive;
};

}  // namespace quarnel02
