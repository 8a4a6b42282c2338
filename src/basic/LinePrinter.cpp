#include "basic/LinePrinter.h"

#include <algorithm>

#include "basic/Numbers.h"

namespace quarnel02 {

void LinePrinter::Put(Tab tab) {
    if (m_column > tab.Column) {
        NewLine();
    }
    Put(std::string(static_cast<std::size_t>(tab.Column - m_column), ' '));
}

void LinePrinter::Put(std::string_view text) {
    if (text.empty()) {
        return;
    }
    m_sink.Write(m_column, text);
    m_column += CharacterCount(text);
}

void LinePrinter::PutNumber(double number) {
    Put(PrintedNumber(number));
}

void LinePrinter::NewLine() {
    m_sink.EndLine();
    m_column = 1;
}

void TextLines::Write(int /*column*/, std::string_view text) {
    m_text += text;
}

void TextLines::EndLine() {
    m_text += '\n';
}

std::string PrintedNumber(double number) {
    const std::string text = NumberText(number);
    return (text.front() == '-' ? text : " " + text) + " ";
}

int CharacterCount(std::string_view text) {
    const auto starts = std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    });
    return static_cast<int>(starts);
}

}  // namespace quarnel02
