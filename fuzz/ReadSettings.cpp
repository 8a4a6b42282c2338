// Takes any text as one of the small files that the program keeps for itself, or as the differences
// of a scenario; the first letter says which: "r" recent files, "s" the last session, "d"
// differences, "k" the name of a file of kept work.

#include <filesystem>

#include "Models.h"
#include "Target.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "commands/KeptName.h"
#include "commands/RecentFiles.h"
#include "commands/SessionState.h"
#include "shell/LoadLineModel.h"
#include "study/ScenarioText.h"

namespace quarnel02::fuzz {

namespace {

void ReadRecent(std::string_view text) {
    const auto file = Scratch() / "recent.cfg";
    WriteFile(file, text);
    RecentFiles recent(file);
    std::array<RecentItem, 4> items;
    recent.FillMenu(items);
    for (const RecentItem& item : items) {
        static_cast<void>(recent.EntryFor(item.Caption));
    }
    recent.Add("/home/user", "line.mdb");
    constexpr std::size_t most = 7;
    const auto entries = recent.Entries();
    Require(entries.size() <= most && entries.at(0) == "/home/user/line.mdb",
            "the last file stands on top of a short list");
}

void ReadSession(std::string_view text) {
    const auto file = Scratch() / "session.state";
    WriteFile(file, text);
    const auto state = ReadSessionState(file);
    Require(state.has_value(), "a damaged session is a session");
    WriteSessionState(file, *state);
    const auto back = ReadSessionState(file);
    Require(back->Saved == state->Saved && back->Orderly == state->Orderly &&
                back->OfferKept == state->OfferKept,
            "a session reads back");
}

const LineModel& Model() {
    static const LineModel model = [] {
        const auto file = Scratch() / "made.seq";
        WriteFile(file, SqliteModel());
        return LoadLineModel(Database::Open(file));
    }();
    return model;
}

void ReadDifferences(std::string_view text) {
    const auto differences = DifferencesOf(Model(), text);
    const std::string written = DifferencesText(Model(), differences);
    Require(DifferencesText(Model(), DifferencesOf(Model(), written)) == written,
            "differences read back");
}

void ReadName(std::string_view text) {
    const auto name = ReadKeptName(std::string(text));
    Require(!name || ReadKeptName(name->Text()).has_value(), "a name of kept work reads back");
    static_cast<void>(KeptProduct(std::string(text)));
}

void Read(char kind, std::string_view text) {
    switch (kind) {
        case 'r':
            return ReadRecent(text);
        case 's':
            return ReadSession(text);
        case 'd':
            return ReadDifferences(text);
        default:
            return ReadName(text);
    }
}

}  // namespace

std::vector<std::string> Seeds() {
    return {"r/home/user/a.mdb\n/home/user/b.mdb,x\r\n\n",
            "ssaved 0123456789abcdef\norderly 1\noffer 0\n",
            "ssaved -\norderly 0\noffer 1\n",
            "dDemand = 80000; Bench.FixedCost = 1,200.5; LaborCost +10%",
            "d#2.TaskTimes -5%\nShifts = 2; StationLimit = none",
            "kPump 2026-11-21 10-05-33.mdb",
            "kUntitled 2026-11-21 10-05-33 (2).seq"};
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    const std::string_view input = fuzz::TextOf(data, size);
    try {
        fuzz::Read(input.empty() ? '\0' : input[0], input.substr(input.empty() ? 0 : 1));
    } catch (const RunTimeError&) {
        return 0;
    }
    return 0;
}
