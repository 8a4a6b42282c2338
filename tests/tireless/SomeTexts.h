#pragma once

#include <QString>
#include <vector>

namespace quarnel02::test {

/// What a user types: figures, names, and what no field takes.
inline const std::vector<QString> kTexts = {
    QStringLiteral("1"),       QStringLiteral("2"),
    QStringLiteral("12.5"),    QStringLiteral("30"),
    QStringLiteral("60000"),   QStringLiteral("100,000"),
    QStringLiteral("50%"),     QStringLiteral("0"),
    QStringLiteral("-3"),      QStringLiteral("1e9"),
    QStringLiteral("0.25"),    QStringLiteral("Press"),
    QStringLiteral("x"),       QStringLiteral("20/1/400"),
    QStringLiteral("32768"),   QStringLiteral("Demand = 80000; LaborCost +10%"),
    QStringLiteral(" "),       QStringLiteral("a'b\"c"),
    QStringLiteral("Größe µ"), QStringLiteral("999999999999999")};

}  // namespace quarnel02::test
