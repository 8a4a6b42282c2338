#include "sheets/FigureTexts.h"

#include "sheets/SheetColumns.h"

namespace quarnel02 {

namespace {

constexpr char kBetween = '|';

std::string Stripped(const std::string& text) {
    constexpr const char* blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string PartText(const InputRow& pair, std::size_t part) {
    const SheetColumn& column = FigureColumns()[part];
    return ShownText(column, pair[column.Place]);
}

}  // namespace

std::string FigureText(const InputRow& pair, ShownFigure figure) {
    if (figure == ShownFigure::AllThree) {
        return PartText(pair, 0) + " | " + PartText(pair, 1) + " | " + PartText(pair, 2);
    }
    return PartText(pair, static_cast<std::size_t>(figure));
}

std::optional<FigureParts> PartsOf(const std::string& text, ShownFigure figure) {
    FigureParts parts;
    if (figure != ShownFigure::AllThree) {
        parts.at(static_cast<std::size_t>(figure)) = Stripped(text);
        return parts;
    }
    std::size_t begin = 0;
    for (std::string& part : parts) {
        const std::size_t end = text.find(kBetween, begin);
        part = Stripped(text.substr(begin, end - begin));
        if (end == std::string::npos) {
            return parts;
        }
        begin = end + 1;
    }
    return std::nullopt;
}

DecimalSign DecimalSignOf(const TextBlock& block, ShownFigure figure) {
    TextBlock parts;
    for (const auto& row : block) {
        auto& texts = parts.emplace_back();
        for (const std::string& text : row) {
            const FigureParts entered = PartsOf(text, figure).value_or(FigureParts());
            texts.insert(texts.end(), entered.begin(), entered.end());
        }
    }
    return DecimalSignOf(parts);
}

}  // namespace quarnel02
