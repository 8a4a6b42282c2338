#include "sheets/ZipArchive.h"

namespace quarnel02 {

namespace {

constexpr zip_uint64_t kMostBytes = 64'000'000;

struct CloseFile {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

}  // namespace

ZipArchive::ZipArchive(std::string_view content) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(content.data(), content.size(), 0, &error);
    zip_error_fini(&error);
    if (source == nullptr) {
        throw std::bad_alloc();
    }
    m_archive.reset(zip_open_from_source(source, ZIP_RDONLY, nullptr));
    if (!m_archive) {
        zip_source_free(source);
        throw DamagedWorkbook("is damaged, or of another kind");
    }
}

bool ZipArchive::Has(const std::string& name) const {
    return zip_name_locate(m_archive.get(), name.c_str(), ZIP_FL_NOCASE) >= 0;
}

std::string ZipArchive::Read(const std::string& name) const {
    const zip_int64_t place = zip_name_locate(m_archive.get(), name.c_str(), ZIP_FL_NOCASE);
    zip_stat_t about{};
    if (place < 0 ||
        zip_stat_index(m_archive.get(), static_cast<zip_uint64_t>(place), 0, &about) != 0) {
        throw DamagedWorkbook("lacks its part " + name);
    }
    if (about.size > kMostBytes) {
        throw DamagedWorkbook("is larger than that of any model");
    }
    const std::unique_ptr<zip_file_t, CloseFile> file(
        zip_fopen_index(m_archive.get(), static_cast<zip_uint64_t>(place), 0));
    std::string content(about.size, '\0');
    if (!file || zip_fread(file.get(), content.data(), content.size()) !=
                     static_cast<zip_int64_t>(content.size())) {
        throw DamagedWorkbook("is damaged in its part " + name);
    }
    char behind = 0;
    if (zip_fread(file.get(), &behind, 1) != 0) {  // the check sum is looked at there
        throw DamagedWorkbook("is damaged in its part " + name);
    }
    return content;
}

pugi::xml_document ZipArchive::ReadXml(const std::string& name) const {
    const std::string content = Read(name);
    pugi::xml_document document;
    if (!document.load_buffer(content.data(), content.size(),
                              pugi::parse_default | pugi::parse_ws_pcdata)) {
        throw DamagedWorkbook("is damaged in its part " + name);
    }
    return document;
}

}  // namespace quarnel02
