#include "jet/IndexLeaf.h"

#include <algorithm>
#include <array>

#include "basic/RunTimeError.h"
#include "jet/Format.h"
#include "jet/Little.h"

namespace quarnel02::jet {

namespace {

constexpr char kNotNull = 0x7F;
constexpr std::size_t kKeysAt = 0x1E0;
constexpr std::size_t kEndsAt = 27;  ///< a bit for every place where a key ends

/// What the letters sort by in the order "General", either case.
constexpr std::array<unsigned char, 26> kLetterKeys = {
    0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59, 0x5B, 0x5C, 0x5E, 0x60,
    0x62, 0x64, 0x66, 0x68, 0x69, 0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};

/// Highest byte first.
void AppendBig(std::string& key, std::uint32_t number, unsigned size) {
    for (unsigned byte = size; byte-- > 0;) {
        key += static_cast<char>(static_cast<unsigned char>(number >> byte * kBitsOfByte));
    }
}

}  // namespace

void AppendKey(std::string& key, std::int32_t number) {
    constexpr std::uint32_t sign = 0x80000000U;
    key += kNotNull;
    AppendBig(key, static_cast<std::uint32_t>(number) ^ sign, sizeof(number));
}

void AppendKey(std::string& key, std::string_view name) {
    constexpr char end_of_letters = 1;
    key += kNotNull;
    for (const char letter : name) {
        const int place = letter >= 'a' ? letter - 'a' : letter - 'A';
        key += static_cast<char>(kLetterKeys.at(static_cast<std::size_t>(place)));
    }
    key += end_of_letters;
    key += '\0';
}

void AppendRowPointer(std::string& key, std::uint32_t pointer) {
    AppendBig(key, pointer, sizeof(pointer));
}

std::string EncodeIndexLeaf(std::size_t owner, std::vector<std::string> keys) {
    std::sort(keys.begin(), keys.end());
    std::string page(kKeysAt, '\0');
    PutNumber(page, 0, kLeafPage | 0x100U, 2);
    PutNumber(page, kOwnerAt, owner, sizeof(std::uint32_t));
    for (const std::string& key : keys) {
        page += key;
        if (page.size() > kJet4.PageSize) {
            throw RunTimeError(
                ErrorKind::SubscriptOutOfRange,
                "An Access database cannot hold the model: there are too many tables.");
        }
        const std::size_t end = page.size() - kKeysAt;
        char& ends = page[kEndsAt + end / kBitsOfByte];
        ends = static_cast<char>(static_cast<unsigned char>(ends) | 1U << end % kBitsOfByte);
    }
    PutNumber(page, kFreeSpaceAt, kJet4.PageSize - page.size(), 2);
    return page;
}

}  // namespace quarnel02::jet
