// Reads arbitrary bytes as an Access database. An input that begins like one is a file; any other
// is a list of changes to a small file that holds something of everything, so that they meet bytes
// that mean something.

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "Changes.h"
#include "Target.h"
#include "basic/RunTimeError.h"
#include "jet/Reader.h"
#include "jet/Recognise.h"
#include "jet/TinyOfEverything.h"

namespace quarnel02::fuzz {

namespace {

const ChangeableFile& BaseOf(char which) {
    static const std::array bases = {ChangeableFile(jet::SmallEverythingFile(0).Content()),
                                     ChangeableFile(jet::SmallEverythingFile(1).Content()),
                                     ChangeableFile(jet::EverythingFile(0).Content())};
    return bases.at(static_cast<unsigned char>(which) % bases.size());
}

/// The first byte chooses the file.
std::string Changed(std::string_view input) {
    return input.empty() ? std::string() : BaseOf(input[0]).With(input.substr(1));
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

std::vector<std::string> Seeds() {
    using namespace std::string_literals;
    return {"\0"s, "\1"s, "\2"s, "\0\x10\x80\1\0"s, jet::SmallEverythingFile(0).Content()};
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    const std::string_view input = fuzz::TextOf(data, size);
    try {
        fuzz::ReadAll(jet::IsAccessHead(input) ? std::string(input) : fuzz::Changed(input));
    } catch (const RunTimeError&) {
        return 0;
    }
    return 0;
}
