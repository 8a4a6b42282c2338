#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quarnel02 {

/// Writes the model of the working copy to the user's file `target`, whole or not at all
/// (WriteWhole). The working copy is copied in one state, under its lock, which is waited for three
/// seconds, and checked: one that is damaged, or is no model, is never written over a file. Throws
/// RunTimeError naming the file and what failed; the target is then as it was before.
void SaveModel(const std::filesystem::path& workingCopy, const std::filesystem::path& target);

/// The same for a file of the program's own, which only its owner may read (WritePrivate).
void KeepModel(const std::filesystem::path& workingCopy, const std::filesystem::path& target);

/// What saving over `target` would destroy: names of its tables, views and triggers that a model
/// does not have ("table Suppliers", "view Costs"). Empty when there is no such file, or when it is
/// not a database at all. Throws DatabaseLocked while another program is writing it.
std::vector<std::string> ForeignObjects(const std::filesystem::path& target);

}  // namespace quarnel02
