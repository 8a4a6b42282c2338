// Takes a first line as a number pattern and the rest as numbers and other texts of boxes.

#include <cmath>

#include "Target.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/OneLine.h"
#include "basic/RunTimeError.h"
#include "sheets/EnteredNumber.h"

namespace quarnel02::fuzz {

namespace {

/// A number as it is shown reads back to the same text.
void RequireStable(double number) {
    const std::string text = NumberText(number);
    Require(NumberText(TextToDouble(text, "text")) == text, "a number that is shown reads back");
    try {
        const float single = ToSingle(number, "single");
        const std::string short_text = NumberText(single);
        Require(NumberText(TextToSingle(short_text, "single")) == short_text,
                "a single that is shown reads back");
        Require(static_cast<float>(DecimalOfSingle(single)) == single,
                "the decimal of a single reads back to it");
    } catch (const RunTimeError&) {
        Require(std::abs(number) > 3e38, "a number fits a single");
    }
}

template <class Read>
void Try(Read read) {
    try {
        read();
    } catch (const RunTimeError&) {
        return;
    }
}

void ReadText(std::string_view text, std::string_view pattern) {
    Try([&] {
        const double number = TextToDouble(text, "number");
        Require(std::isfinite(number), "a text is a finite number");
        static_cast<void>(Format(number, pattern));
        RequireStable(number);
    });
    Try([&] { static_cast<void>(TextToInteger(text, "number")); });
    for (const DecimalSign sign : {DecimalSign::Point, DecimalSign::Comma}) {
        Try([&] {
            Require(std::isfinite(EnteredNumber(text, sign, "number")), "an entry is finite");
        });
    }
}

void RequireOneLine(std::string_view text) {
    const std::string line = OneLine(text);
    Require(line.find_first_of("\n\r\t") == line.npos, "a line is one");
    Require(OneLine(line) == line, "a line stays as it is");
}

}  // namespace

std::vector<std::string> Seeds() {
    return {"#,###\n12\n 1,234.5 \n-0\n1e5",
            "$#,###.00\n1e-7\n9007199254740993\n.5\n5.",
            "###.##\n1.234,5\n0,250\n12,5\n1 234",
            "###0\n32767\n-32768\n65536\n1e308\n1e309",
            "0000.0#\n33.3\n3.4028235e38\n1e-45\n+7",
            "x#\nnan\ninf\n0x10\n1_000\n\xC2\xA0"
            "1"};
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    std::string_view input = fuzz::TextOf(data, size);
    fuzz::RequireOneLine(input);
    const std::string_view pattern = fuzz::TakeUpTo(input, '\n');
    while (!input.empty()) {
        fuzz::ReadText(fuzz::TakeUpTo(input, '\n'), pattern);
    }
    return 0;
}
