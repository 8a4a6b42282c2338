#pragma once

namespace quarnel02::test {

/// Three tasks, a bench that can do all of them and a robot for two, and two demand rows; to run
/// after the schema.
inline constexpr const char* kSmallLine =
    "UPDATE Gen SET Resources = 2, Tasks = 3, Days = 240, ACF = 0.3, LaborCost = 15.5, "
    "TransportTime = 5, Penalty = 2.25, Product = 'Pump';"
    "INSERT INTO Tasks VALUES (1, 'Insert shaft'), (2, 'Fit seal'), (3, 'Close lid');"
    "INSERT INTO Resources VALUES (1, 'Bench', 'By hand', 1, 1200, 0.5, 99, 1.2, 0, 1), "
    "(2, 'Robot', 'Arm', 2, 80000.25, 3, 92, 1.5, 10, 4);"
    "INSERT INTO Matrix VALUES (1, 1, 20, 1, 0), (1, 2, 15.5, 1, 0), (1, 3, 31, 2, 90), "
    "(2, 1, 8, 1, 500), (2, 3, 12.25, 2, 700);"
    "INSERT INTO Demand VALUES (50000, 40), (120000, 60);";

}  // namespace quarnel02::test
