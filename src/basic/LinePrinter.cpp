#include "basic/LinePrinter.h"

#include <algorithm>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

/// A blank or the sign in front, a blank behind.
std::string WithBlanks(const std::string& number) {
    return (number.front() == '-' ? number : " " + number) + " ";
}

}  // namespace

void LinePrinter::Put(Tab tab) {
    const int column = std::max(tab.Column, 1);
    if (m_column > column) {
        NewLine();
    }
    Put(std::string(static_cast<std::size_t>(column - m_column), ' '));
}

void LinePrinter::Put(Column column) {
    if (m_column < column.Start) {
        Write(std::string(static_cast<std::size_t>(column.Start - m_column), ' '));
    }
    m_separate = true;
}

void LinePrinter::Put(std::string_view text) {
    if (text.empty()) {
        return;
    }
    const std::string printable = WithoutControls(text);
    if (m_separate && !m_endsBlank && printable.front() != ' ') {
        Write(" ");
    }
    m_separate = false;
    Write(printable);
}

void LinePrinter::Write(std::string_view text) {
    m_sink.Write(m_column, text);
    m_column += CharacterCount(text);
    m_endsBlank = text.back() == ' ';
}

void LinePrinter::Put(float number) {
    Put(WithBlanks(NumberText(number)));
}

void LinePrinter::PutNumber(double number) {
    Put(PrintedNumber(number));
}

void LinePrinter::NewLine() {
    m_sink.EndLine();
    m_column = 1;
    m_endsBlank = true;
    m_separate = false;
}

void TextLines::Write(int /*column*/, std::string_view text) {
    m_text += text;
}

void TextLines::EndLine() {
    m_text += '\n';
}

std::string PrintedNumber(double number) {
    return WithBlanks(NumberText(number));
}

std::string WithoutControls(std::string_view text) {
    constexpr unsigned char delete_character = 0x7F;
    constexpr unsigned char lead_of_upper_controls = 0xC2;  // U+0080 to U+009F: C2 80 to C2 9F
    constexpr unsigned char first_letter_after_them = 0xA0;
    std::string printable;
    printable.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const bool upper = byte == lead_of_upper_controls && at + 1 < text.size() &&
                           static_cast<unsigned char>(text[at + 1]) < first_letter_after_them;
        at += upper ? 1 : 0;
        printable += upper || byte < ' ' || byte == delete_character ? ' ' : text[at];
    }
    return printable;
}

int CharacterCount(std::string_view text) {
    int count = 0;
    for (const char c : text) {
        count += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U ? 1 : 0;
    }
    return count;
}

}  // namespace quarnel02
