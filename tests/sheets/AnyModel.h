#pragma once

#include <rapidcheck.h>

#include <string>

#include "basic/Numbers.h"
#include "sheets/SheetModels.h"

namespace quarnel02::test {

/// Texts that files and clipboards stumble over, as a field of the model; sometimes none at all.
inline rc::Gen<Value> AnyName() {
    return rc::gen::map(
        rc::gen::element<std::string>(
            "null", "", "   ", "Fit seal", " two  blanks ", "a\tb", "a\nb", "a\r\nb", "say \"yes\"",
            "\"", "=1+1", "12", "007", "12.50", "1,234", "_x0041_", "\x01", "<&>",
            "\xC3\xA4 \xF0\x9F\x98\x80", "TRUE", "'q", "a;b,c", "1E5", "-", "#N/A", "_x005F_"),
        [](const std::string& text) { return text == "null" ? Value() : Value(text); });
}

/// Figures from 0 on: whole, with decimals, and with all bits of a double.
inline rc::Gen<double> AnyFigure() {
    return rc::gen::oneOf(
        rc::gen::element(0.0, 0.1, 12.5, 33.3, 1e-7, 1e20, 0.1 + 0.2, 1.0 / 3, 6.02e23, 5e-324,
                         1.7976931348623157e308, 1234.0, 1.234),
        rc::gen::map(rc::gen::inRange(0, 1'000'000), [](int n) { return n / 1000.0; }));
}

/// A model with odd names and figures, pairs in any order, and pairs of numbers without a record.
inline rc::Gen<InputTables> AnyModel() {
    return rc::gen::exec([] {
        InputTables tables = EmptyMatrixModel(*rc::gen::inRange(0, 6), *rc::gen::inRange(0, 5));
        for (InputRow& task : tables.Tasks) {
            task[TaskColumn::Description] = *AnyName();
        }
        for (InputRow& resource : tables.Resources) {
            resource[ResourceColumn::ShortName] = *AnyName();
            resource[ResourceColumn::Description] = *AnyName();
            resource[ResourceColumn::Type] = std::int64_t{*rc::gen::inRange(0, 4)};
            resource[ResourceColumn::FixedCost] = *AnyFigure();
        }
        tables.Gen[0][GenColumn::Product] = *AnyName();
        tables.Gen[0][GenColumn::Penalty] = *AnyFigure();
        tables.Gen[0][GenColumn::Tasks] = std::int64_t{*rc::gen::inRange(0, 6)};
        const int pairs = *rc::gen::inRange(0, 12);
        for (int pair = 0; pair < pairs; ++pair) {
            tables.Matrix.push_back(PairRow(*rc::gen::inRange(1, 8), *rc::gen::inRange(1, 6),
                                            *AnyFigure(), *rc::gen::inRange(-5, 300),
                                            *AnyFigure()));
        }
        const int points = *rc::gen::inRange(0, 4);
        for (int point = 0; point < points; ++point) {
            tables.Demand.push_back({DecimalOfSingle(*rc::gen::element(0.F, 33.3F, 1e7F, 0.1F)),
                                     static_cast<double>(*rc::gen::inRange(0, 101))});
        }
        const int scenarios = *rc::gen::inRange(0, 3);
        for (int scenario = 0; scenario < scenarios; ++scenario) {
            tables.Scenarios.push_back({std::string("S" + std::to_string(scenario)), *AnyName()});
        }
        return tables;
    });
}

}  // namespace quarnel02::test
