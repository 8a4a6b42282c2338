#include "commands/SessionState.h"

#include <exception>
#include <iomanip>
#include <sstream>
#include <string>

#include "basic/Files.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kUnknown = "-";

void Expect(std::istream& text, const char* name) {
    std::string word;
    text >> word;
    if (word != name) {
        text.setstate(std::ios::failbit);
    }
}

SessionState Parsed(const std::string& content) {
    std::istringstream text(content);
    SessionState state;
    std::string digest;
    Expect(text, "saved");
    text >> digest;
    Expect(text, "orderly");
    text >> state.Orderly;
    Expect(text, "offer");
    text >> state.OfferKept;
    if (!text) {
        return {};
    }
    if (digest != kUnknown) {
        std::istringstream number(digest);
        std::uint64_t value = 0;
        if (!(number >> std::hex >> value) || !number.eof()) {
            return {};
        }
        state.Saved = value;
    }
    return state;
}

}  // namespace

std::optional<SessionState> ReadSessionState(const fs::path& file) noexcept {
    try {
        if (KindOfFile(file) == FileKind::Missing) {
            return std::nullopt;
        }
        return KindOfFile(file) == FileKind::Ordinary ? Parsed(ReadFile(file)) : SessionState{};
    } catch (const std::exception&) {
        return SessionState{};
    }
}

void WriteSessionState(const fs::path& file, const SessionState& state) {
    std::ostringstream text;
    text << "saved ";
    if (state.Saved) {
        text << std::hex << std::setw(16) << std::setfill('0') << *state.Saved;
    } else {
        text << kUnknown;
    }
    text << "\norderly " << state.Orderly << "\noffer " << state.OfferKept << "\n";

    WritePrivate(file, text.str());
}

}  // namespace quarnel02
