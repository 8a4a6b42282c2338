#include "model/ReadModel.h"

#include "basic/Files.h"
#include "model/ModelFile.h"

namespace quarnel02 {

void ReadModel(const std::filesystem::path& source, const std::filesystem::path& /*emptyModel*/,
               const std::filesystem::path& workingCopy, std::string_view name) {
    CheckModelFile(source, name);
    CopyWhole(source, workingCopy);
}

}  // namespace quarnel02
