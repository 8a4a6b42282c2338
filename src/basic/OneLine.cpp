#include "basic/OneLine.h"

#include <algorithm>
#include <array>

namespace quarnel02 {

namespace {

/// No-break blanks, narrow and of no width included, and the line and paragraph separators.
constexpr std::array<std::string_view, 6> kOddBlanks = {
    "\xC2\xA0", "\xE2\x80\x87", "\xE2\x80\xAF", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xEF\xBB\xBF"};

unsigned Code(char byte) {
    return static_cast<unsigned char>(byte);
}

bool IsControl(char byte) {
    return Code(byte) < 0x20 || Code(byte) == 0x7F;
}

/// U+0080 to U+009F.
bool IsLateControl(std::string_view text) {
    return text.size() >= 2 && Code(text[0]) == 0xC2 && Code(text[1]) >= 0x80 &&
           Code(text[1]) <= 0x9F;
}

/// Bytes of the control character or odd blank at the front of `text`; 0 for anything else.
std::size_t OddLength(std::string_view text) {
    if (IsControl(text.front())) {
        return 1;
    }
    if (IsLateControl(text)) {
        return 2;
    }
    const auto* const blank = std::find_if(kOddBlanks.begin(), kOddBlanks.end(),
                                           [&](auto each) { return text.starts_with(each); });
    return blank == kOddBlanks.end() ? 0 : blank->size();
}

struct Run {
    std::size_t Length = 0;  ///< in bytes
    bool Plain = true;       ///< blanks alone
};

/// The blanks and control characters at the front of `text`.
Run LeadingRun(std::string_view text) {
    Run run;
    while (run.Length < text.size()) {
        const std::string_view rest = text.substr(run.Length);
        const std::size_t odd = OddLength(rest);
        if (odd == 0 && rest.front() != ' ') {
            break;
        }
        run.Plain = run.Plain && odd == 0;
        run.Length += std::max<std::size_t>(odd, 1);
    }
    return run;
}

}  // namespace

std::string OneLine(std::string_view text) {
    std::string line;
    std::size_t at = 0;
    while (at < text.size()) {
        const Run run = LeadingRun(text.substr(at));
        if (run.Length == 0) {
            line += text[at];
            ++at;
            continue;
        }
        const bool inside = at > 0 && at + run.Length < text.size();
        if (run.Plain) {
            line += text.substr(at, run.Length);
        } else if (inside) {
            line += ' ';
        }
        at += run.Length;
    }
    return line;
}

}  // namespace quarnel02
