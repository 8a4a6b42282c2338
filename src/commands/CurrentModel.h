#pragma once

#include <string>

#include "files/ModelFormat.h"

namespace quarnel02 {

/// What the working copy was opened from or last saved to.
struct CurrentModel {
    std::string Dir;   ///< directory of the model file; "" for an untitled model
    std::string File;  ///< its name with extension; "" for an untitled model
    ModelFormat Format = ModelFormat::Sqlite;  ///< of that file; Save keeps it
    bool Changed = false;  ///< the working copy holds changes not yet copied to a model file
};

}  // namespace quarnel02
