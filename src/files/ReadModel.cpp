#include "files/ReadModel.h"

#include "basic/Files.h"
#include "files/Defences.h"
#include "files/ModelChecks.h"
#include "files/ModelImage.h"
#include "files/ModelSource.h"
#include "model/Connection.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

void CopyRows(ModelSource& file, ModelImage& image, std::string_view name) {
    for (const TableSchema& table : ModelSchema()) {
        image.Fill(table, [&](const ModelImage::AddRow& add) {
            const auto count = file.ReadRows(table, add);
            if (table.Name == "Gen") {
                RequireGenRow(count, name);
            }
        });
    }
    if (file.HasScenarios()) {
        image.Fill(ScenariosSchema(),
                   [&](const ModelImage::AddRow& add) { file.ReadRows(ScenariosSchema(), add); });
    }
}

}  // namespace

ModelFormat ReadModel(const fs::path& source, const fs::path& workingCopy, std::string_view name) {
    const MemoryLimit limit;
    return Translating(PathText(workingCopy), [&] {
        const auto file = OpenModelSource(source, name);
        file->RequireReadable();
        ModelImage image;
        CopyRows(*file, image, name);
        WritePrivate(workingCopy, image.Content(std::string(name)));
        return file->Format();
    });
}

}  // namespace quarnel02
