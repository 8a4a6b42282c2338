#include "jet/CodePage.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstdint>

#include "jet/Damage.h"
#include "jet/Utf16.h"

namespace quarnel02::jet {

namespace {

/// Converts until the text ends, the buffer is full or a byte stands for nothing; false then.
bool ConvertSome(iconv_t conversion, char*& from, std::size_t& left, std::string& utf8) {
    std::array<char, 512> buffer{};
    char* to = buffer.data();
    std::size_t room = buffer.size();
    const std::size_t converted = iconv(conversion, &from, &left, &to, &room);
    const bool good = converted != static_cast<std::size_t>(-1) || errno == E2BIG;
    utf8.append(buffer.data(), buffer.size() - room);
    return good;
}

iconv_t Opened(unsigned codePage) {
    const iconv_t conversion = iconv_open("UTF-8", ("CP" + std::to_string(codePage)).c_str());
    if (reinterpret_cast<std::intptr_t>(conversion) == -1) {
        throw Refusal("holds texts in code page " + std::to_string(codePage) +
                      ", which is not known here. Save it in Access as an Access 2002-2003 "
                      "database (.mdb).");
    }
    return conversion;
}

}  // namespace

CodePage::CodePage(unsigned number) : m_conversion(Opened(number)) {}

void CodePage::Close::operator()(void* conversion) const {
    iconv_close(conversion);
}

std::string CodePage::Utf8Of(std::string_view text) const {
    iconv(m_conversion.get(), nullptr, nullptr, nullptr, nullptr);
    std::string utf8;
    char* from = const_cast<char*>(text.data());  // which iconv does not write to
    std::size_t left = text.size();
    while (left > 0) {
        if (!ConvertSome(m_conversion.get(), from, left, utf8)) {
            utf8 += kReplacementCharacter;
            ++from;
            --left;
        }
    }
    return utf8;
}

}  // namespace quarnel02::jet
