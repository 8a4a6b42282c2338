#include "commands/KeptName.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <string_view>

namespace quarnel02 {

namespace {

constexpr std::string_view kTimePattern = "0000-00-00 00-00-00";
constexpr std::array<std::string_view, 2> kExtensions = {".mdb", ".seq"};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsTime(std::string_view text) {
    return std::equal(
        text.begin(), text.end(), kTimePattern.begin(), kTimePattern.end(),
        [](char c, char pattern) { return pattern == '0' ? IsDigit(c) : c == pattern; });
}

/// Takes " (2)" from the end of `stem`; 1 where there is none.
int TakeNumber(std::string_view& stem) {
    const auto open = stem.rfind(" (");
    if (open == std::string_view::npos || !stem.ends_with(')')) {
        return 1;
    }
    const std::string_view digits = stem.substr(open + 2, stem.size() - open - 3);
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || number < 2) {
        return 1;
    }
    stem = stem.substr(0, open);
    return number;
}

bool IsRefusedSomewhere(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F ||
           std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos;
}

/// Cuts a text of UTF-8 after a whole character.
void CutTo(std::string& text, std::size_t bytes) {
    if (text.size() <= bytes) {
        return;
    }
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U) {
        --bytes;
    }
    text.resize(bytes);
}

}  // namespace

std::string KeptName::Text() const {
    return Product + " " + Time + (Number > 1 ? " (" + std::to_string(Number) + ")" : "") +
           Extension;
}

std::optional<KeptName> ReadKeptName(const std::string& name) {
    KeptName kept;
    std::string_view stem = name;
    for (const std::string_view extension : kExtensions) {
        if (stem.ends_with(extension)) {
            kept.Extension = extension;
        }
    }
    if (kept.Extension.empty()) {
        return std::nullopt;
    }
    stem.remove_suffix(kept.Extension.size());
    kept.Number = TakeNumber(stem);
    const std::size_t time = kTimePattern.size();
    if (stem.size() < time + 2 || !IsTime(stem.substr(stem.size() - time)) ||
        stem[stem.size() - time - 1] != ' ') {
        return std::nullopt;
    }
    kept.Time = stem.substr(stem.size() - time);
    kept.Product = stem.substr(0, stem.size() - time - 1);
    return kept;
}

std::string KeptTime(std::chrono::system_clock::time_point time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H-%M-%S", &local);
    return {text.data(), length};
}

std::string KeptProduct(const std::string& product) {
    constexpr std::size_t most_bytes = 100;
    std::string text = product;
    std::replace_if(text.begin(), text.end(), IsRefusedSomewhere, '_');
    CutTo(text, most_bytes);
    const auto first = text.find_first_not_of(" .");
    if (first == std::string::npos) {
        return "Untitled";
    }
    const auto last = text.find_last_not_of(" .");
    return text.substr(first, last - first + 1);
}

}  // namespace quarnel02
