#pragma once

#include <cstddef>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace quarnel02::test {

/// Why a text is no well-formed XML of one root element; empty when it is. Knows elements,
/// attributes in double quotes and the five standard entities.
inline std::string XmlError(const std::string& xml) {
    static const std::regex tag(R"re(<(/?)([A-Za-z]+)((?: [A-Za-z0-9:-]+="[^"<&]*")*)(/?)>)re");
    static const std::regex text(R"(([^<>&]|&(amp|lt|gt|quot|apos);)*)");
    std::vector<std::string> open;
    std::size_t roots = 0;
    auto from = xml.cbegin();
    for (std::sregex_iterator match(xml.begin(), xml.end(), tag), none; match != none; ++match) {
        const auto found = (*match)[0].first;
        const std::string between(from, found);
        from = (*match)[0].second;
        if (!std::regex_match(between, text)) {
            return "bad text: " + between;
        }
        const std::string name = (*match)[2];
        if ((*match)[1] == "/") {
            if (open.empty() || open.back() != name) {
                return "unexpected end of " + name;
            }
            open.pop_back();
            continue;
        }
        roots += open.empty() ? 1U : 0U;
        if ((*match)[4] != "/") {
            open.push_back(name);
        }
    }
    const std::string rest(from, xml.cend());
    if (!open.empty() || roots != 1 || rest.find_first_not_of(" \n") != std::string::npos) {
        return "not one whole root element";
    }
    return "";
}

}  // namespace quarnel02::test
