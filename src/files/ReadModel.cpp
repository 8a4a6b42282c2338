#include "files/ReadModel.h"

#include "basic/Files.h"
#include "files/ForeignFile.h"
#include "files/ModelChecks.h"
#include "files/ModelImage.h"
#include "model/Connection.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

void RequireReadable(const ForeignFile& file) {
    file.RequireKnownFormat();
    file.RequireWhole();
    for (const TableSchema& table : ModelSchema()) {
        file.RequireTable(table);
    }
}

void CopyRows(ForeignFile& file, ModelImage& image, std::string_view name) {
    for (const TableSchema& table : ModelSchema()) {
        image.Fill(table, [&](const ModelImage::AddRow& add) {
            const auto count = file.ReadRows(table, add);
            if (table.Name == "Gen") {
                RequireGenRow(count, name);
            }
        });
    }
}

}  // namespace

void ReadModel(const fs::path& source, const fs::path& workingCopy, std::string_view name) {
    Translating(PathText(workingCopy), [&] {
        ForeignFile file(source, name);
        RequireReadable(file);
        ModelImage image;
        CopyRows(file, image, name);
        WritePrivate(workingCopy, image.Content(std::string(name)));
    });
}

}  // namespace quarnel02
