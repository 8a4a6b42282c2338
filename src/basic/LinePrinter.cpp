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

void LinePrinter::Put(std::string_view text) {
    if (text.empty()) {
        return;
    }
    m_sink.Write(m_column, text);
    m_column += CharacterCount(text);
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

int CharacterCount(std::string_view text) {
    const auto starts = std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    });
    return static_cast<int>(starts);
}

}  // namespace quarnel02
