#include "sheets/XlsxReader.h"

#include <algorithm>
#include <map>
#include <vector>

#include "sheets/SheetFill.h"
#include "sheets/XlsxStyles.h"
#include "sheets/XlsxText.h"

namespace quarnel02 {

namespace {

/// "xl/" of "xl/workbook.xml".
std::string DirectoryOf(const std::string& part) {
    return part.substr(0, part.rfind('/') + 1);
}

/// The parts that a part refers to, by the id or the kind of the relation.
class Relations {
  public:
    Relations(const ZipArchive& archive, const std::string& part);

    /// Throws DamagedWorkbook for an id that is not there.
    [[nodiscard]] const std::string& Part(const std::string& id) const;
    /// The part of that kind ("sharedStrings"); "" without one.
    [[nodiscard]] std::string PartOfKind(const std::string& kind) const;

  private:
    std::map<std::string, std::string> m_byId;
    std::map<std::string, std::string> m_byKind;
};

Relations::Relations(const ZipArchive& archive, const std::string& part) {
    const std::string directory = DirectoryOf(part);
    const auto document =
        archive.ReadXml(directory + "_rels/" + part.substr(directory.size()) + ".rels");
    for (const pugi::xml_node& relation : document.document_element().children()) {
        const std::string target(Attribute(relation, "Target"));
        const std::string kind(Attribute(relation, "Type"));
        const std::string whole = target.starts_with('/') ? target.substr(1) : directory + target;
        m_byId[std::string(Attribute(relation, "Id"))] = whole;
        m_byKind[kind.substr(kind.rfind('/') + 1)] = whole;
    }
}

const std::string& Relations::Part(const std::string& id) const {
    const auto part = m_byId.find(id);
    if (part == m_byId.end()) {
        throw DamagedWorkbook("lacks a sheet that it lists");
    }
    return part->second;
}

std::string Relations::PartOfKind(const std::string& kind) const {
    const auto part = m_byKind.find(kind);
    return part == m_byKind.end() ? "" : part->second;
}

/// The column of a cell reference such as "AB12"; `next` when there is none.
std::size_t ColumnOf(std::string_view reference, std::size_t next) {
    constexpr std::size_t letters = 26;
    constexpr std::size_t longest = 3;
    const std::size_t length = std::min(reference.find_first_of("0123456789"), reference.size());
    if (length == 0) {
        return next;
    }
    std::size_t column = 0;
    for (const char c : reference.substr(0, length)) {
        if (c < 'A' || c > 'Z' || length > longest) {
            throw DamagedWorkbook("has a cell at \"" + std::string(reference.substr(0, 40)) + "\"");
        }
        column = column * letters + static_cast<std::size_t>(c - 'A') + 1;
    }
    return column - 1;
}

/// Reads the sheets of one workbook.
class XlsxSheets {
  public:
    explicit XlsxSheets(const ZipArchive& archive)
        : m_archive(archive),
          m_book(Relations(archive, "").PartOfKind("officeDocument")),
          m_relations(archive, m_book) {}

    Workbook Read();

  private:
    void ReadTexts();
    void ReadSheet(const std::string& part);
    [[nodiscard]] Value CellValue(const pugi::xml_node& cell) const;
    [[nodiscard]] Value NumberValue(const pugi::xml_node& cell, std::string_view text) const;

    const ZipArchive& m_archive;
    std::string m_book;
    Relations m_relations;
    std::vector<std::string> m_texts;
    XlsxStyles m_styles;
    SheetFiller m_sheets;
};

void XlsxSheets::ReadTexts() {
    const std::string part = m_relations.PartOfKind("sharedStrings");
    if (part.empty()) {
        return;
    }
    const auto document = m_archive.ReadXml(part);
    for (const pugi::xml_node& item : document.document_element().children()) {
        if (LocalName(item.name()) == "si") {
            m_texts.push_back(XlsxText(item));
            m_sheets.CountText(sizeof(std::string) + m_texts.back().size());
        }
    }
}

Value XlsxSheets::NumberValue(const pugi::xml_node& cell, std::string_view text) const {
    if (text.empty()) {
        const bool no_text = std::string_view(Child(cell, "f").text().get()) == "\"\"";
        return no_text ? Value(std::string()) : Value();
    }
    const double number = FileNumber(text);
    return m_styles.IsPercent(Attribute(cell, "s")) ? PercentOf(number) : number;
}

Value XlsxSheets::CellValue(const pugi::xml_node& cell) const {
    const std::string_view type = Attribute(cell, "t");
    const std::string_view text = Child(cell, "v").text().get();
    if (type == "s") {
        const std::size_t place = FileCount(text);
        if (place >= m_texts.size()) {
            throw DamagedWorkbook("lacks texts of its cells");
        }
        return m_texts[place];
    }
    if (type == "inlineStr") {
        return XlsxText(Child(cell, "is"));
    }
    if (type == "str" || type == "e" || type == "d") {
        return WithoutEscapes(std::string(text));
    }
    return NumberValue(cell, text);
}

void XlsxSheets::ReadSheet(const std::string& part) {
    const auto document = m_archive.ReadXml(part);
    std::size_t next_row = 0;
    for (const pugi::xml_node& row : Child(document.document_element(), "sheetData").children()) {
        if (LocalName(row.name()) != "row") {
            continue;
        }
        const std::string_view number = Attribute(row, "r");
        const std::size_t line = number.empty() ? next_row : FileCount(number) - 1;
        std::size_t next_column = 0;
        for (const pugi::xml_node& cell : row.children()) {
            if (LocalName(cell.name()) == "c") {
                const std::size_t column = ColumnOf(Attribute(cell, "r"), next_column);
                m_sheets.Put(line, column, CellValue(cell));
                next_column = column + 1;
            }
        }
        next_row = line + 1;
    }
}

Workbook XlsxSheets::Read() {
    ReadTexts();
    if (const std::string part = m_relations.PartOfKind("styles"); !part.empty()) {
        m_styles = XlsxStyles(m_archive.ReadXml(part));
    }
    const auto document = m_archive.ReadXml(m_book);
    for (const pugi::xml_node& each : Child(document.document_element(), "sheets").children()) {
        if (LocalName(each.name()) != "sheet") {
            continue;
        }
        const auto id = each.find_attribute([](const pugi::xml_attribute& attribute) {
            return std::string_view(attribute.name()).ends_with(":id");
        });
        m_sheets.Add(Attribute(each, "name"));
        ReadSheet(m_relations.Part(id.value()));
    }
    return m_sheets.Result();
}

}  // namespace

Workbook ReadXlsx(const ZipArchive& archive) {
    return XlsxSheets(archive).Read();
}

}  // namespace quarnel02
