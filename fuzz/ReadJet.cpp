// Reads arbitrary bytes as an Access database. An input that begins like one is a file; any other
// is a list of changes to a small file that holds something of everything, so that they meet bytes
// that mean something.

#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "basic/RunTimeError.h"
#include "jet/Reader.h"
#include "jet/Recognise.h"
#include "jet/TinyOfEverything.h"

namespace {

using namespace quarnel02;

/// A file, and the places in it that hold something or stand next to what does.
struct Base {
    explicit Base(const jet::TinyFile& file) : Content(file.Content()) {
        constexpr std::size_t reach = 4;
        std::size_t last = 0;
        for (std::size_t i = 0; i < Content.size(); ++i) {
            last = Content[i] != '\0' ? i : last;
            if (i - last <= reach) {
                Places.push_back(i);
            }
        }
    }

    std::string Content;
    std::vector<std::size_t> Places;
};

const Base& BaseOf(unsigned which) {
    static const std::array bases = {Base(jet::SmallEverythingFile(0)),
                                     Base(jet::SmallEverythingFile(1)),
                                     Base(jet::EverythingFile(0))};
    return bases.at(which % bases.size());
}

/// The first byte chooses the file. Of every four bytes that follow, two are a place and two what
/// is put there; where the place's highest bit is set, only one.
std::string Changed(std::string_view input) {
    if (input.empty()) {
        return {};
    }
    constexpr std::size_t change = 4;
    const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(input[at]); };
    const Base& base = BaseOf(byte(0));
    std::string content = base.Content;
    for (std::size_t at = 1; at + change <= input.size(); at += change) {
        const unsigned which = byte(at) | static_cast<unsigned>(byte(at + 1)) << 8U;
        const std::size_t place = base.Places[(which & 0x7FFFU) % base.Places.size()];
        content[place] = input[at + 2];
        if ((which & 0x8000U) == 0 && place + 1 < content.size()) {
            content[place + 1] = input[at + 3];
        }
    }
    return content;
}

void ReadAll(std::string content) {
    jet::Reader reader(jet::FileContent{std::move(content)}, "line.mdb");
    for (const jet::DatabaseObject& object : reader.Objects()) {
        try {
            const auto columns = reader.Columns(object.Name);
            std::vector<std::size_t> places;
            for (std::size_t i = 0; i < columns.size(); ++i) {
                if (columns[i].Type < jet::ColumnType::Computed) {
                    places.push_back(i);
                }
            }
            reader.ReadRows(object.Name, places, [](const jet::Row& /*row*/) {});
        } catch (const RunTimeError&) {  // and on to the next table
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    try {
        ReadAll(jet::IsAccessHead(input) ? std::string(input) : Changed(input));
    } catch (const RunTimeError&) {
        return 0;
    }
    return 0;
}
