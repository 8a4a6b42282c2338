// Which program a desktop opens a file with: the name alone does not tell a model from a database
// of another program.
#include <gmock/gmock.h>

#include <QMimeDatabase>
#include <QString>
#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using ::testing::UnorderedElementsAre;

/// Where the desktop's file types and ours are installed together, as the system's own directory
/// has them. The toolkit reads it once.
class InstalledTypes {
  public:
    InstalledTypes() {
        const fs::path types = m_place.Path() / "mime";
        fs::create_directories(types / "packages");
        for (const fs::path& package : {fs::path("/usr/share/mime/packages/freedesktop.org.xml"),
                                        fs::path(QUARNEL02_ROOT) / "desktop" / "quarnel02.xml"}) {
            fs::copy_file(package, types / "packages" / package.filename());
        }
        const auto run = test::RunProgram({"update-mime-database", types.string()},
                                          {{"PKGSYSTEM_ENABLE_FSYNC", "0"}});
        EXPECT_EQ(run.Status, 0) << run.Err;
        qputenv("XDG_DATA_DIRS", QByteArray::fromStdString(m_place.Path().string()));
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString((m_place.Path() / "none").string()));
    }

  private:
    TemporaryDirectory m_place;
};

QMimeDatabase Types() {
    static const InstalledTypes installed;
    return {};
}

std::string TypeOf(const fs::path& file) {
    return Types().mimeTypeForFile(QString::fromStdString(file.string())).name().toStdString();
}

TEST(FileType, IsOursForAModel) {
    EXPECT_EQ(TypeOf(fs::path(QUARNEL02_PROGRAMS) / "examples" / "pump.mdb"),
              "application/x-quarnel02-model");
}

/// Desktops look at the content only where the names of two types fit equally well.
TEST(FileType, LeavesTheChoiceToTheContent) {
    std::vector<std::string> types;
    for (const QMimeType& type : Types().mimeTypesForFileName(QStringLiteral("x.mdb"))) {
        types.push_back(type.name().toStdString());
    }
    EXPECT_THAT(types,
                UnorderedElementsAre("application/x-quarnel02-model", "application/vnd.ms-access"));
}

TEST(FileType, IsNotOursForAnAccessDatabase) {
    EXPECT_EQ(TypeOf(fs::path(QUARNEL02_FIXTURES) / "jet" / "pump_v2003.mdb"),
              "application/vnd.ms-access");
}

TEST(FileType, IsNotOursForAnyDatabaseOfTheStore) {
    const TemporaryDirectory place;
    const fs::path file = place.Path() / "other.sqlite3";
    fs::copy_file(fs::path(QUARNEL02_PROGRAMS) / "examples" / "pump.mdb", file);
    EXPECT_EQ(TypeOf(file), "application/vnd.sqlite3");
}

}  // namespace
}  // namespace quarnel02
