#include "batch/Options.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

/// What the parser makes of these words; none when it takes them.
std::string ErrorFor(std::vector<std::string> words, Options& options) {
    CLI::App app;
    Describe(app, options);
    std::reverse(words.begin(), words.end());
    try {
        app.parse(words);
        RequireCombination(app, options);
    } catch (const CLI::ParseError& error) {
        return error.what();
    }
    return "";
}

std::string ErrorFor(const std::vector<std::string>& words) {
    Options options;
    return ErrorFor(words, options);
}

TEST(Options, AreTakenAsTyped) {
    Options options;
    EXPECT_EQ(ErrorFor({"a.mdb", "--shifts", "2", "--demand", "12,500", "b.mdb", "--format", "json",
                        "c.mdb", "--jobs", "3"},
                       options),
              "");
    EXPECT_EQ(options.Models, (std::vector<std::string>{"a.mdb", "b.mdb", "c.mdb"}));
    EXPECT_EQ(options.Shifts, 2);
    EXPECT_EQ(options.Demand, "12,500");
    EXPECT_EQ(options.Jobs, 3);
    EXPECT_EQ(FormatFor(options, FormatUse::Print), "json");
    EXPECT_FALSE(options.StationLimit.has_value());
}

TEST(Options, KeepAnEmptyValueApartFromNone) {
    Options options;
    EXPECT_EQ(ErrorFor({"a.mdb", "--shifts", "1", "--station-limit", ""}, options), "");
    EXPECT_EQ(options.StationLimit, "");
}

TEST(Options, NeedEachOther) {
    EXPECT_EQ(ErrorFor({"a.mdb", "--stochastic", "--demand", "5"}), "--demand requires --shifts");
    EXPECT_EQ(ErrorFor({"a.mdb", "--shifts", "1", "--to", "5"}), "--to requires --study");
    EXPECT_EQ(ErrorFor({"a.mdb", "--stochastic", "--station-limit", "5"}),
              "--station-limit requires --shifts");
    EXPECT_EQ(ErrorFor({"a.mdb", "--study", "why-not", "--stochastic", "--station-limit", "5"}),
              "--station-limit requires --shifts");
    EXPECT_EQ(ErrorFor({"a.mdb", "--study", "volumes", "--station-limit", "5"}), "");
}

TEST(Options, OfAStudyAreItsOwn) {
    EXPECT_EQ(ErrorFor({"a.mdb", "--study", "volumes", "--demand", "5"}),
              "--demand does not go with --study volumes.");
    EXPECT_EQ(ErrorFor({"a.mdb", "--study", "volumes", "--stochastic"}),
              "--stochastic does not go with --study volumes.");
    EXPECT_EQ(ErrorFor({"a.mdb", "--study", "alternatives", "--shifts", "1", "--from", "5"}),
              "--from does not go with --study alternatives.");
    EXPECT_EQ(ErrorFor({"a.mdb", "--study", "scenarios", "--shifts", "1", "--save", "b.mdb"}),
              "--save does not go with --study scenarios.");
    EXPECT_NE(ErrorFor({"a.mdb", "--study", "alternatives"}).find("Exactly 1 option from"),
              std::string::npos);
    EXPECT_NE(ErrorFor({"a.mdb", "--study", "prices", "--shifts", "1"}).find("volumes"),
              std::string::npos);
}

TEST(Options, OfFormatsGoOncePerUse) {
    Options options;
    EXPECT_EQ(
        ErrorFor({"a.mdb", "--shifts", "1", "--format", "json", "--format", "access"}, options),
        "");
    EXPECT_EQ(FormatFor(options, FormatUse::Print), "json");
    EXPECT_EQ(FormatFor(options, FormatUse::Save), "access");
    options.Formats.emplace_back("text");
    EXPECT_EQ(
        test::ExpectRunTimeError(ErrorKind::TypeMismatch,
                                 [&] { static_cast<void>(FormatFor(options, FormatUse::Print)); }),
        "--format is given both as text and as json. Give one of them.");
    EXPECT_EQ(ErrorFor({"a.mdb", "--shifts", "1", "--format", "csv"}),
              "--format csv does not go with a design. Use json, or name a --study.");
    EXPECT_EQ(ErrorFor({"a.mdb", "--study", "volumes", "--format", "csv"}), "");
}

TEST(Options, ThatNameAPlaceForResultsAreForOneModel) {
    EXPECT_EQ(ErrorFor({"a.mdb", "b.mdb", "--shifts", "1", "--save", "c.mdb"}),
              "--save does not go with several models. Solve them one by one.");
}

}  // namespace
}  // namespace quarnel02
