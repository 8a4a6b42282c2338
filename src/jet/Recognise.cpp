#include "jet/Recognise.h"

#include <array>

namespace quarnel02::jet {

bool IsAccessHead(std::string_view head) {
    using namespace std::string_view_literals;
    static constexpr std::array marks = {"\0\1\0\0Standard Jet DB\0"sv,
                                         "\0\1\0\0Standard ACE DB\0"sv};
    return head.starts_with(marks[0]) || head.starts_with(marks[1]);
}

}  // namespace quarnel02::jet
