#include "widgets/PictureWords.h"

#include <variant>

namespace quarnel02 {

QString PictureWords(const Picture& picture) {
    std::string words;
    for (const PictureFigure& figure : picture.Figures()) {
        const auto* text = std::get_if<TextFigure>(&figure);
        if (text != nullptr && text->Text.find_first_not_of(' ') != std::string::npos) {
            words += (words.empty() ? "" : "\n") + text->Text;
        }
    }
    return QString::fromStdString(words);
}

}  // namespace quarnel02
