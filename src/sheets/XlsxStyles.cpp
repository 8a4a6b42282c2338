#include "sheets/XlsxStyles.h"

#include <set>
#include <string>

#include "sheets/SheetFill.h"

namespace quarnel02 {

XlsxStyles::XlsxStyles(const pugi::xml_document& styles) {
    std::set<std::string, std::less<>> percent = {"9", "10"};  // "0%" and "0.00%" of every file
    const pugi::xml_node root = styles.document_element();
    for (const pugi::xml_node& format : Child(root, "numFmts").children()) {
        if (Attribute(format, "formatCode").find('%') != std::string_view::npos) {
            percent.emplace(Attribute(format, "numFmtId"));
        }
    }
    for (const pugi::xml_node& style : Child(root, "cellXfs").children()) {
        m_percent.push_back(percent.contains(Attribute(style, "numFmtId")));
    }
}

bool XlsxStyles::IsPercent(std::string_view style) const {
    const std::size_t place = style.empty() ? 0 : FileCount(style);
    return place < m_percent.size() && m_percent[place];
}

}  // namespace quarnel02
