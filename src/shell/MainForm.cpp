#include "shell/MainForm.h"

#include <utility>

namespace quarnel02 {

MainForm::MainForm(std::filesystem::path applicationDirectory)
    : m_applicationDirectory(std::move(applicationDirectory)) {}

std::filesystem::path MainForm::InApplicationDirectory(const std::string& file) const {
    return m_applicationDirectory / file;
}

std::filesystem::path MainForm::WorkingCopy() const {
    return InApplicationDirectory("working.seq");
}

Database& MainForm::OpenWorkingCopy() {
    Model = Database::Open(WorkingCopy());
    return Model;
}

void MainForm::CloseModel() noexcept {
    GenRecords.Close();
    PathwayRecords.Close();
    Model.Close();
}

}  // namespace quarnel02
