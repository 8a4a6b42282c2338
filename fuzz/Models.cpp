#include "Models.h"

#include "basic/Files.h"
#include "files/ModelFile.h"
#include "files/SaveModel.h"
#include "model/SchemaScript.h"

namespace quarnel02::fuzz {

std::string ModelRows() {
    return "UPDATE Gen SET Resources = 2, Tasks = 3, Days = 240, ACF = 0.3, LaborCost = 15.5, "
           "TransportTime = 5, Penalty = 2.25, Product = 'Pump';\n"
           "INSERT INTO Tasks VALUES (1, 'Insert shaft'), (2, 'Fit seal'), (3, NULL);\n"
           "INSERT INTO Resources VALUES (1, 'Bench', 'By hand', 1, 1200, 0.5, 99, 1.2, 0, 1), "
           "(2, 'Robot', NULL, 2, 80000.25, 3, 92, 1.5, 10, 4);\n"
           "INSERT INTO Matrix VALUES (1, 1, 20, 1, 0), (1, 2, 15.5, 1, 0), (1, 3, 31, 2, 90), "
           "(2, 1, 8, 1, 500), (2, 3, 12.25, 2, 700);\n"
           "INSERT INTO Demand VALUES (50000, 40), (120000, 60);\n"
           "INSERT INTO Scenarios VALUES ('More', 'Demand +20%');\n";
}

const std::filesystem::path& Scratch() {
    static const TemporaryDirectory directory;
    return directory.Path();
}

std::string SqliteModel() {
    const auto file = Scratch() / "made.mdb";
    MakeModelFile(file, std::string(SchemaScript()) + ModelRows());
    return ReadFile(file);
}

std::string AccessModel() {
    const auto file = Scratch() / "made.mdb";
    const auto access = Scratch() / "access.mdb";
    WriteFile(file, SqliteModel());
    SaveModel(file, access, ModelFormat::Access);
    return ReadFile(access);
}

}  // namespace quarnel02::fuzz
