#pragma once

#include <string>

#include "files/ModelFormat.h"

namespace quarnel02 {

/// The dialog for opening and saving as the file commands see it. FileName and FilePath keep
/// their values between uses; FileName is "" after Cancel.
class FileDialog {
  public:
    virtual ~FileDialog() = default;

    std::string FileName;                      ///< name entered or chosen, with its extension
    std::string FilePath;                      ///< its directory
    bool OpenMode = false;                     ///< serves Open; else Save
    ModelFormat Format = ModelFormat::Sqlite;  ///< in which Save writes the file

    /// Prepares the dialog for one use; errors are ignored.
    virtual void SetForm(bool isOpen) = 0;
    /// Shows it and returns when it has closed.
    virtual void ShowModal() = 0;
};

/// `name` with ".mdb" behind it, unless its last four characters are exactly that: "MODEL.MDB"
/// becomes "MODEL.MDB.mdb". An empty name stays empty.
std::string WithModelExtension(const std::string& name);

/// What stands for a name that is typed to open a file: the same, but ".accdb" stays too.
std::string WithOpenedExtension(const std::string& name);

/// `name` as Save As proposes it: the extension ".accdb", of which no file is written, becomes
/// ".mdb".
std::string WithSavedExtension(const std::string& name);

/// Why no file in `directory` can have that name, with what to do; "" when one can.
std::string FileNameObjection(const std::string& directory, const std::string& name);

}  // namespace quarnel02
