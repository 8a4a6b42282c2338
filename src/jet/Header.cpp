#include "jet/Header.h"

#include <bit>
#include <cstdint>
#include <string>

#include "jet/HeaderMask.h"
#include "jet/Recognise.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kHeaderBytes = kMaskedAt + kMaskedBytesJet4;

enum Version : unsigned { Jet3 = 0, Jet4 = 1, NewestAce = 6 };

/// The password of a Jet 4 file is masked by the day on which the file was made.
std::uint32_t PasswordMask(Bytes header, bool wide) {
    if (!wide) {
        return 0;
    }
    const auto created = std::bit_cast<double>(header.U64(kCreatedAt));
    const bool is_day = created > -1e6 && created < 1e7;
    return is_day ? static_cast<std::uint32_t>(static_cast<std::int32_t>(created)) : 0;
}

bool HasPassword(Bytes header, bool wide) {
    const std::uint32_t mask = PasswordMask(header, wide);
    const std::size_t size = wide ? kPasswordBytesJet4 : kPasswordBytesJet3;
    for (std::size_t i = 0; i < size; i += sizeof(mask)) {
        if (header.U32(kPasswordAt + i) != mask) {
            return true;
        }
    }
    return false;
}

void RequireOpen(Bytes header, unsigned version) {
    if (header.U32(kKeyAt) != 0) {
        throw Refusal(
            "is encrypted. Open it in Access, take its password or its encoding off, and try "
            "again.");
    }
    // Later versions know no password without encryption.
    if (version <= Jet4 && HasPassword(header, version == Jet4)) {
        throw Refusal(
            "is protected by a database password. Open it in Access for exclusive use, unset the "
            "password, and try again.");
    }
}

}  // namespace

Header ReadHeader(Bytes file) {
    if (!IsAccessHead(file.Text())) {
        throw Refusal("is not an Access database. Choose another file.");
    }
    if (file.Size() < kHeaderBytes) {
        throw Refusal("is cut short. Use another copy of it.");
    }
    const unsigned version = file.U8(kVersionAt);
    if (version > NewestAce) {
        throw Refusal(
            "was made by a version of Access that this program does not know. Save it in Access "
            "as an Access 2002-2003 database (.mdb).");
    }
    std::string header(file.Part(0, kHeaderBytes).Text());
    ApplyHeaderMask(header, version != Jet3);
    RequireOpen(Bytes(header), version);
    return {.Layout = version == Jet3 ? &kJet3 : &kJet4,
            .CodePage = Bytes(header).U16(kCodePageAt)};
}

}  // namespace quarnel02::jet
