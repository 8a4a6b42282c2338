#include "jet/TinyOfEverything.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kWideColumns = 70;
constexpr std::size_t kLongest = 255;

std::string Text(unsigned version, std::string_view ascii) {
    return version == 0 ? std::string(ascii) : Wide(ascii);
}

std::vector<TinyColumn> ColumnOfEveryType() {
    return {{"Id"},
            {"YesNo", TypeCode::YesNo, 1},
            {"Byte", TypeCode::Byte, 1},
            {"Integer", TypeCode::Integer, 2},
            {"Currency", TypeCode::Currency, 8},
            {"Single", TypeCode::Single, 4},
            {"Double", TypeCode::Double, 8},
            {"DateTime", TypeCode::DateTime, 8},
            TinyText("Text"),
            TinyMemo("Memo"),
            {"Decimal", TypeCode::Decimal, 17, true, 3},
            {"Guid", TypeCode::Guid, 16},
            {"Added", TypeCode::LongInteger, 4}};
}

/// Id, Text and Memo; the rest is Null.
TinyRow TextRow(unsigned id, std::string text, std::string memo) {
    TinyRow row{{Little(id, 4)}};
    row.Fields.resize(8);
    row.Fields.emplace_back(std::move(text));
    row.Fields.emplace_back(std::move(memo));
    row.Fields.resize(12);
    return row;
}

TinyRow FullRow(const std::string& text, const std::string& memo) {
    TinyRow row = TextRow(1, text, memo);
    row.Fields[1] = "";
    row.Fields[2] = Little(200, 1);
    row.Fields[3] = Little(0xFFFE, 2);
    row.Fields[4] = Little(1234567, 8);
    row.Fields[5] = Little(0x42053333, 4);
    row.Fields[6] = LittleReal(0.1);
    row.Fields[7] = LittleReal(38143.75);
    row.Fields[10] = Little(0x80, 1) + Little(0, 12) + Little(123456, 4);
    row.Fields[11] = "0123456789abcdef";
    row.Fields.emplace_back(Little(4096, 4));
    return row;
}

}  // namespace

std::string DigitText(std::size_t length) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i) {
        text += static_cast<char>('0' + i % 10);
    }
    return text;
}

TinyFile SmallEverythingFile(unsigned version) {
    TinyFile file(version);
    const auto text = [&](std::string_view ascii) { return Text(version, ascii); };
    TinyTable everything{"Everything", ColumnOfEveryType(), {}};
    auto& rows = everything.Rows;
    rows.push_back(FullRow(text("Hello"), TinyFile::ShortField(text("short"))));
    rows.push_back({{Little(2, 4)}});
    rows.push_back(TextRow(3, text(DigitText(kLongest)), file.LongField(text(DigitText(60)))));
    rows.back().Place = TinyPlace::Moved;
    rows.push_back(TextRow(4, text(DigitText(10)), file.LongFieldInParts(text(DigitText(90)), 70)));
    rows.push_back({{Little(5, 4)}, TinyPlace::Deleted});
    file.Add(everything);
    file.AddObject("AQuery", 5);
    file.AddObject("AForm", -32768);
    file.AddObject("ALink", 6);
    file.AddObject("MSysOwn", 1, 0x80000000U);
    return file;
}

TinyFile EverythingFile(unsigned version) {
    TinyFile file = SmallEverythingFile(version);
    TinyTable wide{"Wide", {}, {{{}}}};
    for (std::size_t i = 0; i < kWideColumns; ++i) {
        wide.Columns.push_back(TinyText("AColumnOfALongName" + std::to_string(i)));
        wide.Rows[0].Fields.emplace_back(Text(version, DigitText(i % 9)));
    }
    file.Add(wide);
    return file;
}

}  // namespace quarnel02::jet
