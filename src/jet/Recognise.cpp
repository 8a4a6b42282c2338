#include "jet/Recognise.h"

#include <array>

#include "jet/Header.h"

namespace quarnel02::jet {

bool IsAccessHead(std::string_view head) {
    using namespace std::string_view_literals;
    static constexpr std::array marks = {"\0\1\0\0Standard Jet DB\0"sv,
                                         "\0\1\0\0Standard ACE DB\0"sv};
    return head.starts_with(marks[0]) || head.starts_with(marks[1]);
}

Generation GenerationOf(std::string_view head) {
    const char version = head.size() > kVersionAt ? head[kVersionAt] : '\0';
    if (version == '\0') {
        return Generation::Access97;
    }
    return version == '\1' ? Generation::Access2000 : Generation::Access2007;
}

}  // namespace quarnel02::jet
