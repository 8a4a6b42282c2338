// Which program a desktop opens a file with: the name alone does not tell a model from a database
// of another program.
#include <gtest/gtest.h>

#include <QMimeDatabase>
#include <QString>
#include <filesystem>

#include "basic/Files.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

/// A user's data directory with the file type in it. The toolkit reads it once.
class UserData {
  public:
    UserData() {
        const fs::path packages = m_place.Path() / "mime" / "packages";
        fs::create_directories(packages);
        fs::copy_file(fs::path(QUARNEL02_ROOT) / "desktop" / "quarnel02.xml",
                      packages / "quarnel02.xml");
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString(m_place.Path().string()));
    }

  private:
    TemporaryDirectory m_place;
};

std::string TypeOf(const fs::path& file) {
    static const UserData data;
    return QMimeDatabase()
        .mimeTypeForFile(QString::fromStdString(file.string()))
        .name()
        .toStdString();
}

TEST(FileType, IsOursForAModel) {
    EXPECT_EQ(TypeOf(fs::path(QUARNEL02_PROGRAMS) / "examples" / "pump.mdb"),
              "application/x-quarnel02-model");
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
