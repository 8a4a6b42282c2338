#include "model/SaveModel.h"

#include "basic/Files.h"

namespace quarnel02 {

void SaveModel(const std::filesystem::path& workingCopy, const std::filesystem::path& target) {
    CopyWhole(workingCopy, target);
}

std::vector<std::string> ForeignObjects(const std::filesystem::path& /*target*/) {
    return {};
}

}  // namespace quarnel02
