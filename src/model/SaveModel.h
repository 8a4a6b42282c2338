#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quarnel02 {

/// Writes the model of the working copy to the user's file `target`, whole or not at all. Throws
/// RunTimeError naming the file and what failed; the target is then as it was before.
void SaveModel(const std::filesystem::path& workingCopy, const std::filesystem::path& target);

/// What saving over `target` would destroy: names of its tables, views and triggers that a model
/// does not have ("table Suppliers", "view Costs"). Empty when there is no such file, or when it is
/// not a database at all.
std::vector<std::string> ForeignObjects(const std::filesystem::path& target);

}  // namespace quarnel02
