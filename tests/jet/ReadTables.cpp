#include "jet/ReadTables.h"

#include <array>
#include <charconv>
#include <numeric>

#include "basic/RunTimeError.h"

namespace quarnel02::jet {

namespace {

struct ValueText {
    std::string operator()(std::monostate /*null*/) const { return "Null"; }
    std::string operator()(const std::string& text) const { return '"' + text + '"'; }
    template <class Number>
    std::string operator()(Number number) const {
        std::array<char, 64> text{};
        return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
    }
};

}  // namespace

ReadTable ReadWhole(Reader& reader, std::string_view table) {
    ReadTable read{reader.Columns(table), {}};
    std::vector<std::size_t> places(read.Columns.size());
    std::iota(places.begin(), places.end(), 0U);
    reader.ReadRows(table, places, [&](const Row& row) { read.Rows.push_back(row); });
    return read;
}

std::string MessageOfReading(std::string content) {
    try {
        Reader reader(FileContent{std::move(content)}, "line.mdb");
        for (const DatabaseObject& object : reader.Objects()) {
            if (object.Kind == ObjectKind::Table) {
                ReadWhole(reader, object.Name);
            }
        }
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return {};
}

std::string TextOf(const std::vector<Row>& rows) {
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += (i == 0 ? "" : "|") + std::visit(ValueText(), row[i]);
        }
        text += '\n';
    }
    return text;
}

std::filesystem::path FixturePath(std::string_view name) {
    return QUARNEL02_FIXTURES "/jet/" + std::string(name) + ".mdb";
}

}  // namespace quarnel02::jet
