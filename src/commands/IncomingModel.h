#pragma once

#include <filesystem>
#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

/// A model on its way to become the working copy. It is made in a directory of its own beside the
/// working copy, tried there, and only then takes the working copy's place. The directory goes with
/// the object; only its owner can enter it.
class IncomingModel : Immovable {
  public:
    /// Throws FileAccess when the directory cannot be made.
    explicit IncomingModel(MainForm& form);
    ~IncomingModel();

    /// Where the model is to be made, as a file that only its owner can read.
    [[nodiscard]] std::filesystem::path Path() const;

    /// Loads the model into a form that nobody sees. Throws what loading throws, in the name of
    /// `name`.
    void Try(const std::string& name) const;

    /// Puts the model in the place of the working copy and shows it. When that fails the old
    /// working copy is back and shown, and the failure is thrown.
    void TakePlace();

    /// Undoes what a killed program left half done; once, before the working copy is used.
    static void CleanUp(const MainForm& form);

  private:
    MainForm& m_form;
    std::filesystem::path m_directory;
};

/// LoadModel, and the demand list filled anew: what the window shows is the loaded model.
void ShowLoadedModel(MainForm& form);

}  // namespace quarnel02
