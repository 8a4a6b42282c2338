#pragma once

#include <set>
#include <string>

#include "sheets/MatrixSheet.h"
#include "sheets/NumberedRows.h"

namespace quarnel02::test {

/// "T2 | R1: 12.5 | 3 | 400" of every pair with a matrix row, found by the numbers alone.
inline std::multiset<std::string> TriplesOf(const InputTables& tables) {
    const auto name = [](const TableRows& records, const Value& number) -> std::string {
        for (const InputRow& record : records) {
            if (record[0] == number) {
                return std::get<std::string>(record[1]);
            }
        }
        return {};
    };
    std::multiset<std::string> triples;
    for (const InputRow& row : tables.Matrix) {
        const std::string task = name(tables.Tasks, row[MatrixColumn::TaskId]);
        const std::string resource = name(tables.Resources, row[MatrixColumn::ResourceId]);
        if (!task.empty() && !resource.empty()) {
            std::string triple = task + " | " + resource + ":";
            for (const SheetColumn& figure : FigureColumns()) {
                triple += " | " + ShownText(figure, row[figure.Place]);
            }
            triples.insert(triple);
        }
    }
    return triples;
}

}  // namespace quarnel02::test
