#include "model/ReadModel.h"

#include "basic/Files.h"
#include "model/Connection.h"
#include "model/ForeignFile.h"
#include "model/ModelImage.h"
#include "model/SoundModel.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

void RequireReadable(ForeignFile& file) {
    file.RequireKnownFormat();
    file.RequireWhole();
    for (const TableSchema& table : ModelSchema()) {
        file.RequireTable(table);
    }
}

void CopyRows(ForeignFile& file, ModelImage& image, std::string_view name) {
    for (const TableSchema& table : ModelSchema()) {
        ModelImage::Appender rows(image, table);
        const auto count =
            file.ReadRows(table, [&](const std::vector<Value>& values) { rows.Append(values); });
        if (table.Name == "Gen") {
            RequireGenRow(count, name);
        }
    }
}

}  // namespace

void ReadModel(const fs::path& source, const fs::path& workingCopy, std::string_view name) {
    try {
        ForeignFile file(source, name);
        RequireReadable(file);
        ModelImage image;
        image.Refill([&] { CopyRows(file, image, name); });
        image.Require(name);
        WritePrivate(workingCopy, image.Content());
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, PathText(workingCopy));
    }
}

}  // namespace quarnel02
