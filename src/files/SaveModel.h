#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "files/ModelFormat.h"

namespace quarnel02 {

/// Writes the model of the working copy to the user's file `target`, whole or not at all
/// (WriteWhole). The working copy is copied in one state, under its lock, which is waited for three
/// seconds, and checked: one that is damaged, or is no model, is never written over a file. An
/// Access database has the eight tables, and is one of Access 2000 to 2003. Throws RunTimeError
/// naming the file and what failed, also where ObstacleTo is final, and for what an Access database
/// cannot hold (a text of more than 255 characters); the target is then as it was before.
void SaveModel(const std::filesystem::path& workingCopy, const std::filesystem::path& target,
               ModelFormat format = ModelFormat::Sqlite);

/// The same for a file of the program's own, which only its owner may read (WritePrivate).
void KeepModel(const std::filesystem::path& workingCopy, const std::filesystem::path& target);

/// Why a file had better not be replaced.
struct Obstacle {
    std::string
        Why;       ///< goes on from the name of the file: "holds more than a model: query Costs."
    bool IsFinal;  ///< it is never replaced, whatever the user says
};

/// What saving a model of that format over `target` would destroy. Nothing when there is no such
/// file, when it holds a model and no more, or when it is no database at all. Throws DatabaseLocked
/// while another program has it, and NotAModel for an Access database that cannot be looked into:
/// one that is damaged, encrypted or protected by a password.
std::optional<Obstacle> ObstacleTo(const std::filesystem::path& target, ModelFormat format);

/// What users made in the file beyond a model ("table Suppliers", "view Costs"). Empty when there
/// is no such file, or when it is not a database at all. Throws like ObstacleTo.
std::vector<std::string> ForeignObjects(const std::filesystem::path& target);

}  // namespace quarnel02
