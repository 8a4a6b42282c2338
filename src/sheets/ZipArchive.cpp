#include "sheets/ZipArchive.h"

#include <new>

#include "basic/Limits.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kMostTree = 200'000'000;  ///< bytes of an XML text and of its nodes

struct CloseFile {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

/// Memory that pugixml gives and takes back.
struct FreeXml {
    void operator()(char* text) const { pugi::get_memory_deallocation_function()(text); }
};

/// What an XML text and its tree take in memory, at most: a few letters make a node.
std::size_t TreeSize(std::string_view xml) {
    constexpr std::size_t node = 64;
    constexpr std::size_t attribute = 40;
    std::size_t size = xml.size();
    char before = '>';
    for (std::size_t i = 0; i < xml.size(); before = xml[i++]) {
        if (xml[i] == '=') {
            size += attribute;
        } else if (xml[i] == '<') {
            const bool opens = i + 1 < xml.size() && xml[i + 1] != '/';
            size += (opens ? node : 0) + (before == '>' ? 0 : node);  // and a text in front of it
        }
    }
    return size;
}

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
    std::string content;
    Unpack(name, [&](std::size_t size) -> char* {
        content.resize(size);
        return std::data(content);
    });
    return content;
}

void ZipArchive::Unpack(const std::string& name,
                        const std::function<char*(std::size_t)>& room) const {
    const zip_int64_t place = zip_name_locate(m_archive.get(), name.c_str(), ZIP_FL_NOCASE);
    zip_stat_t about{};
    if (place < 0 ||
        zip_stat_index(m_archive.get(), static_cast<zip_uint64_t>(place), 0, &about) != 0) {
        throw DamagedWorkbook("lacks its part " + name);
    }
    if (about.size > limits::kSheetFile) {
        throw DamagedWorkbook("is larger than that of any model");
    }
    const std::unique_ptr<zip_file_t, CloseFile> file(
        zip_fopen_index(m_archive.get(), static_cast<zip_uint64_t>(place), 0));
    if (!file || zip_fread(file.get(), room(about.size), about.size) !=
                     static_cast<zip_int64_t>(about.size)) {
        throw DamagedWorkbook("is damaged in its part " + name);
    }
    char behind = 0;
    if (zip_fread(file.get(), &behind, 1) != 0) {  // the check sum is looked at there
        throw DamagedWorkbook("is damaged in its part " + name);
    }
}

pugi::xml_document ZipArchive::ReadXml(const std::string& name) const {
    std::unique_ptr<char, FreeXml> text;
    std::size_t size = 0;
    Unpack(name, [&](std::size_t bytes) {
        size = bytes;
        text.reset(static_cast<char*>(pugi::get_memory_allocation_function()(bytes + 1)));
        return text ? text.get() : throw std::bad_alloc();
    });
    if (TreeSize({text.get(), size}) > kMostTree) {
        throw DamagedWorkbook("is larger than that of any model");
    }
    pugi::xml_document document;
    if (!document.load_buffer_inplace_own(text.release(), size,
                                          pugi::parse_default | pugi::parse_ws_pcdata)) {
        throw DamagedWorkbook("is damaged in its part " + name);
    }
    return document;
}

}  // namespace quarnel02
