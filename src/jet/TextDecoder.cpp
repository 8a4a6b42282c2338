#include "jet/TextDecoder.h"

#include "jet/Utf16.h"

namespace quarnel02::jet {

namespace {

constexpr unsigned kUsualCodePage = 1252;
constexpr unsigned kCompressedMark = 0xFEFF;

bool IsCompressed(Bytes text) {
    return text.Size() >= kCodeUnit && text.U16(0) == kCompressedMark;
}

/// A compressed text holds stretches of one byte a character and stretches of two; a byte 0
/// switches between them.
std::u16string Expanded(Bytes text) {
    std::u16string units;
    units.reserve(text.Size());
    bool narrow = true;
    for (std::size_t at = kCodeUnit; at < text.Size();) {
        if (text.U8(at) == 0) {
            narrow = !narrow;
            ++at;
        } else if (narrow) {
            units += static_cast<char16_t>(text.U8(at));
            ++at;
        } else {
            units += static_cast<char16_t>(text.U16(at));
            at += kCodeUnit;
        }
    }
    return units;
}

std::u16string Units(Bytes text) {
    if (text.Size() % kCodeUnit != 0) {
        throw Damage();
    }
    std::u16string units;
    units.reserve(text.Size() / kCodeUnit);
    for (std::size_t at = 0; at < text.Size(); at += kCodeUnit) {
        units += static_cast<char16_t>(text.U16(at));
    }
    return units;
}

}  // namespace

TextDecoder::TextDecoder(bool wide, unsigned codePage) {
    if (!wide) {
        m_codePage = std::make_unique<CodePage>(codePage == 0 ? kUsualCodePage : codePage);
    }
}

std::string TextDecoder::Decode(Bytes text) const {
    if (m_codePage) {
        return m_codePage->Utf8Of(text.Text());
    }
    return Utf8Of(IsCompressed(text) ? Expanded(text) : Units(text));
}

}  // namespace quarnel02::jet
