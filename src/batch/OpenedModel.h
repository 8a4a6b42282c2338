#pragma once

#include <filesystem>

#include "basic/Immovable.h"
#include "batch/BatchForm.h"
#include "batch/Interruption.h"
#include "files/ModelFormat.h"

namespace quarnel02 {

/// A private working copy of a user's model, in a scratch directory of its own, and the form that
/// shows it.
class OpenedModel : Immovable {
  public:
    /// Throws as ReadModel does.
    OpenedModel(const std::filesystem::path& model, bool progress);

    [[nodiscard]] BatchForm& Form() { return m_form; }
    /// Of the user's file.
    [[nodiscard]] ModelFormat Format() const { return m_format; }

  private:
    ScratchDirectory m_application;
    BatchForm m_form;
    ModelFormat m_format;
};

}  // namespace quarnel02
