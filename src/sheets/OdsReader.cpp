#include "sheets/OdsReader.h"

#include <algorithm>

#include "sheets/SheetFill.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kMostBlanks = 32'768;
constexpr std::size_t kMostCellText = 1'000'000;  ///< of a cell, in bytes
constexpr int kMostLevels = 16;                   ///< of elements in each other

std::size_t Repeats(const pugi::xml_node& node, std::string_view attribute) {
    const std::string_view count = Attribute(node, attribute);
    return count.empty() ? 1 : FileCount(count);
}

void AddText(std::string& text, const pugi::xml_node& paragraph, int level = 0) {
    for (const pugi::xml_node& part : paragraph.children()) {
        if (level > kMostLevels || text.size() > kMostCellText) {
            throw DamagedWorkbook("has a text that is larger than that of any model");
        }
        const std::string_view name = LocalName(part.name());
        if (name == "s") {
            text.append(std::min(Repeats(part, "c"), kMostBlanks), ' ');
        } else if (name == "tab") {
            text += '\t';
        } else if (name == "line-break") {
            text += '\n';
        } else if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) {
            text += part.value();
        } else {
            AddText(text, part, level + 1);
        }
    }
}

/// The paragraphs of a cell, a line each.
std::string TextInCell(const pugi::xml_node& cell) {
    std::string text;
    bool first = true;
    for (const pugi::xml_node& paragraph : cell.children()) {
        if (LocalName(paragraph.name()) == "p") {
            text += first ? "" : "\n";
            first = false;
            AddText(text, paragraph);
        }
    }
    return text;
}

Value TypedValue(const pugi::xml_node& cell, std::string_view type) {
    if (type == "string") {
        const std::string_view value = Attribute(cell, "string-value");
        return value.empty() ? TextInCell(cell) : std::string(value);
    }
    if (type == "float" || type == "currency") {
        return FileNumber(Attribute(cell, "value"));
    }
    if (type == "percentage") {
        return PercentOf(FileNumber(Attribute(cell, "value")));
    }
    return TextInCell(cell);  // a date, a time, true or false: as it is shown
}

/// A formula without a value comes to the empty text.
Value CellValue(const pugi::xml_node& cell) {
    const std::string_view type = Attribute(cell, "value-type");
    if (type.empty()) {
        return Attribute(cell, "formula").empty() ? Value() : Value(TextInCell(cell));
    }
    return TypedValue(cell, type);
}

/// Reads the rows of one table.
class OdsTable {
  public:
    explicit OdsTable(SheetFiller& sheets) : m_sheets(sheets) {}

    /// Reads rows, also those that stand in groups.
    void ReadRows(const pugi::xml_node& parent, int depth = 0);

  private:
    void ReadRow(const pugi::xml_node& row);
    void ReadCells(const pugi::xml_node& row);

    SheetFiller& m_sheets;
    std::size_t m_row = 0;
};

void OdsTable::ReadCells(const pugi::xml_node& row) {
    std::size_t column = 0;
    for (const pugi::xml_node& cell : row.children()) {
        const std::string_view name = LocalName(cell.name());
        if (name != "table-cell" && name != "covered-table-cell") {
            continue;
        }
        const std::size_t repeats = Repeats(cell, "number-columns-repeated");
        const Value value = CellValue(cell);
        for (std::size_t copy = 0; copy < repeats && !IsNull(value); ++copy) {
            m_sheets.Put(m_row, column + copy, value);
        }
        column += repeats;
    }
}

void OdsTable::ReadRow(const pugi::xml_node& row) {
    const std::size_t repeats = Repeats(row, "number-rows-repeated");
    ReadCells(row);
    m_sheets.Repeat(m_row, repeats - std::min<std::size_t>(repeats, 1));
    m_row += repeats;
}

void OdsTable::ReadRows(const pugi::xml_node& parent, int depth) {
    for (const pugi::xml_node& node : parent.children()) {
        const std::string_view name = LocalName(node.name());
        if (name == "table-row") {
            ReadRow(node);
        } else if (depth < kMostLevels && (name == "table-row-group" || name == "table-rows" ||
                                           name == "table-header-rows")) {
            ReadRows(node, depth + 1);
        }
    }
}

}  // namespace

Workbook ReadOds(const ZipArchive& archive) {
    const auto document = archive.ReadXml("content.xml");
    const auto body = Child(document.document_element(), "body");
    const auto tables = Child(body, "spreadsheet");
    if (!tables) {
        throw DamagedWorkbook("is no spreadsheet");
    }
    SheetFiller sheets;
    for (const pugi::xml_node& table : tables.children()) {
        if (LocalName(table.name()) == "table") {
            sheets.Add(Attribute(table, "name"));
            OdsTable(sheets).ReadRows(table);
        }
    }
    return sheets.Result();
}

}  // namespace quarnel02
