#include "tireless/UserFiles.h"

#include <sys/stat.h>

#include <QDir>
#include <utility>

#include "app/QtPaths.h"
#include "basic/Files.h"
#include "files/ModelFile.h"
#include "files/SaveModel.h"
#include "sheets/InputTables.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"
#include "support/ModelScript.h"

namespace quarnel02::test {

namespace fs = std::filesystem;

namespace {

/// Five tasks, three resources, three demand points.
ModelScript SmallLine() {
    ModelScript model;
    model.Product = "Small line";
    model.Penalty = 4;
    model.TransportTime = 2;
    model.Tasks = 5;
    model.Resources = {{"Bench", 0, 3000, 1.5, 96, 1, 4, 1},
                       {"Press", 1, 9000, 6, 90, 1.3, 0, 4},
                       {"Robot", 3, 60000, 11, 92, 1.5, 8, 6}};
    model.Matrix = {{1, 1, 20, 1, 400},  {1, 2, 31, 1, 400},  {1, 3, 12, 2, 900},
                    {1, 4, 25, 2, 900},  {1, 5, 18, 3, 150},  {2, 2, 9, 1, 20000},
                    {2, 3, 8, 1, 20000}, {3, 1, 6, 1, 30000}, {3, 4, 7, 2, 15000},
                    {3, 5, 5, 2, 15000}};
    model.Demand = {{40000, 30}, {80000, 50}, {120000, 20}};
    return model;
}

std::string TaskRows(int tasks) {
    std::string sql;
    for (int task = 1; task <= tasks; ++task) {
        sql += SqlInsert("Tasks", {std::to_string(task), "'Task " + std::to_string(task) + "'"});
    }
    return sql;
}

void MakeModel(const fs::path& file, const ModelScript& model) {
    MakeModelFile(file, ReadFile(QUARNEL02_SCHEMA_FILE) + model.Sql() + TaskRows(model.Tasks));
}

/// The last third is missing.
void Cut(const fs::path& whole, const fs::path& cut) {
    const std::string bytes = ReadFile(whole);
    WriteFile(cut, bytes.substr(0, bytes.size() * 2 / 3));
}

}  // namespace

UserFiles::UserFiles(fs::path directory) : m_directory(std::move(directory)) {
    const fs::path good = m_directory / "small.mdb";
    fs::create_directories(m_directory / "sheets");
    MakeModel(good, SmallLine());
    MakeModel(m_directory / "worked.mdb", WorkedExample());
    SaveModel(good, m_directory / "access.mdb", ModelFormat::Access);
    const Workbook sheets = SheetsOf(ReadInputTables(Database::Open(good)));
    WriteXlsx(m_directory / "book.xlsx", sheets);
    WriteCsvDirectory(m_directory / "sheets", sheets);
    Cut(good, m_directory / "damaged.mdb");
    Cut(m_directory / "access.mdb", m_directory / "damaged-access.mdb");
    Cut(m_directory / "book.xlsx", m_directory / "damaged.xlsx");
    m_good = ReadFile(good);
    m_stamps = Stamps();
}

QStringList UserFiles::Paths(const QStringList& patterns) const {
    QStringList paths;
    for (const QFileInfo& file :
         QDir(ToQString(m_directory)).entryInfoList(patterns, QDir::Files)) {
        paths.append(file.filePath());
    }
    return paths;
}

QStringList UserFiles::Models() const {
    return Paths({QStringLiteral("*.mdb")});
}

QStringList UserFiles::Workbooks() const {
    return Paths({QStringLiteral("*.xlsx")}) +
           QStringList{ToQString(m_directory / "sheets" / "Tasks.csv")};
}

QString UserFiles::GoodModel() {
    WriteFile(m_directory / "good.mdb", m_good);
    return ToQString(m_directory / "good.mdb");
}

/// What tells a file from the one that it replaces.
std::map<std::string, std::string> UserFiles::Stamps() const {
    std::map<std::string, std::string> stamps;
    for (const auto& entry : fs::recursive_directory_iterator(m_directory)) {
        struct stat state {};
        if (entry.is_regular_file() && ::stat(entry.path().c_str(), &state) == 0) {
            stamps[entry.path().string()] = std::to_string(state.st_ino) + "," +
                                            std::to_string(state.st_mtim.tv_sec) + "," +
                                            std::to_string(state.st_mtim.tv_nsec);
        }
    }
    return stamps;
}

std::vector<std::string> UserFiles::TakeWritten() {
    std::vector<std::string> written;
    const auto before = std::exchange(m_stamps, Stamps());
    for (const auto& [file, stamp] : m_stamps) {
        const auto known = before.find(file);
        if (known == before.end() || known->second != stamp) {
            written.push_back(fs::path(file).extension().string());
        }
    }
    return written;
}

}  // namespace quarnel02::test
