#include "jet/WriteHeader.h"

#include <array>
#include <bit>
#include <string_view>

#include "jet/Format.h"
#include "jet/Header.h"
#include "jet/HeaderMask.h"
#include "jet/Little.h"

namespace quarnel02::jet {

namespace {

constexpr unsigned kJet4Version = 1;
constexpr unsigned kWesternCodePage = 1252;
constexpr std::size_t kSortOrderAt = 0x6E;
constexpr std::size_t kEngineVersionAt = 0x9C;
constexpr std::size_t kCommitsAt = 0xE00;

/// The numbers with which the masked part starts in every file.
constexpr std::array<std::uint32_t, 6> kLead = {0x100, 0x101, 2, 3, 4, 5};

void PutPassword(std::string& page, double created) {
    const auto mask = static_cast<std::uint32_t>(static_cast<std::int32_t>(created));
    for (std::size_t i = 0; i < kPasswordBytesJet4; i += sizeof(mask)) {
        PutNumber(page, kPasswordAt + i, mask, sizeof(mask));
    }
}

/// Says that nobody is in the middle of a change.
void PutCommits(std::string& page) {
    constexpr std::size_t entry = 2;
    constexpr unsigned none = 0x100;
    for (std::size_t at = kCommitsAt; at < page.size(); at += entry) {
        PutNumber(page, at, none, entry);
    }
}

}  // namespace

double DaysOf(std::chrono::system_clock::time_point time) {
    using namespace std::chrono;
    constexpr sys_days start = year{1899} / December / 30;
    return duration<double, days::period>(time - start).count();
}

std::string EncodeHeader(double created) {
    using namespace std::string_view_literals;
    std::string page(kJet4.PageSize, '\0');
    page.replace(0, 4, "\0\1\0\0"sv);
    page.replace(kEngineAt, 15, "Standard Jet DB"sv);
    page[kVersionAt] = kJet4Version;
    for (std::size_t i = 0; i < kLead.size(); ++i) {
        PutNumber(page, kMaskedAt + i * sizeof(kLead[i]), kLead[i], sizeof(kLead[i]));
    }
    PutNumber(page, kCodePageAt, kWesternCodePage, 2);
    PutPassword(page, created);
    PutNumber(page, kSortOrderAt, kGeneralSortOrder, sizeof(std::uint32_t));
    PutNumber(page, kCreatedAt, std::bit_cast<std::uint64_t>(created), sizeof(created));
    ApplyHeaderMask(page, true);
    page.replace(kEngineVersionAt, 3, "4.0"sv);
    PutCommits(page);
    return page;
}

}  // namespace quarnel02::jet
