#include "jet/WrittenPages.h"

#include "basic/RunTimeError.h"
#include "jet/Bytes.h"
#include "jet/Little.h"

namespace quarnel02::jet {

namespace {

/// One page of bits tells of so many, which is enough for a model.
constexpr std::size_t kMostPages = (kJet4.PageSize - kUsageHeader) * kBitsOfByte;
constexpr std::size_t kMostRows = 255;
constexpr std::size_t kRowEntry = 2;
constexpr std::size_t kPlacesAt = kJet4.RowCountAt + kRowEntry;
constexpr unsigned kPageMark = 0x100;  ///< beside the type of every page

}  // namespace

std::size_t WrittenPages::Add() {
    if (Count() >= kMostPages) {
        throw RunTimeError(ErrorKind::SubscriptOutOfRange,
                           "An Access database cannot hold the model: it would be larger than 128 "
                           "MB. Delete what it does not need.");
    }
    m_bytes.resize(m_bytes.size() + kJet4.PageSize);
    return Count() - 1;
}

void WrittenPages::Put(std::size_t page, std::string_view content) {
    m_bytes.replace(page * kJet4.PageSize, content.size(), content);
}

void WrittenPages::PutNumber(std::size_t page, std::size_t at, std::uint64_t number,
                             std::size_t size) {
    jet::PutNumber(m_bytes, page * kJet4.PageSize + at, number, size);
}

void WrittenPages::SetBit(std::size_t page, std::size_t at, std::size_t bit) {
    constexpr std::size_t byte_bits = 8;
    char& byte = m_bytes[page * kJet4.PageSize + at + bit / byte_bits];
    byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << bit % byte_bits);
}

std::size_t WrittenPages::Number16(std::size_t page, std::size_t at) const {
    return jet::Bytes(m_bytes).U16(page * kJet4.PageSize + at);
}

void WrittenPages::StartRows(std::size_t page, std::size_t owner) {
    PutNumber(page, 0, kDataPage | kPageMark, kRowEntry);
    PutNumber(page, kFreeSpaceAt, kJet4.PageSize - kPlacesAt, kRowEntry);
    PutNumber(page, kOwnerAt, owner, sizeof(std::uint32_t));
}

bool WrittenPages::HasRoom(std::size_t page, std::size_t rowSize) const {
    return rowSize + kRowEntry <= Number16(page, kFreeSpaceAt) &&
           Number16(page, kJet4.RowCountAt) < kMostRows;
}

std::uint32_t WrittenPages::AddRow(std::size_t page, std::string_view row) {
    const std::size_t count = Number16(page, kJet4.RowCountAt);
    const std::size_t place = kPlacesAt + count * kRowEntry;
    const std::size_t end = count == 0 ? kJet4.PageSize : Number16(page, place - kRowEntry);
    const std::size_t start = end - row.size();
    m_bytes.replace(page * kJet4.PageSize + start, row.size(), row);
    PutNumber(page, place, start, kRowEntry);
    PutNumber(page, kJet4.RowCountAt, count + 1, kRowEntry);
    PutNumber(page, kFreeSpaceAt, Number16(page, kFreeSpaceAt) - row.size() - kRowEntry, kRowEntry);
    return static_cast<std::uint32_t>(page << kRowNumberBits | count);
}

}  // namespace quarnel02::jet
