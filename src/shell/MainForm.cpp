#include "shell/MainForm.h"

#include <utility>

namespace quarnel02 {

namespace {

Picture GraphPicture() {
    constexpr double width = 7200;
    constexpr double height = 4200;
    return {width, height};
}

Picture ArcPicture() {
    constexpr double width = 15000;
    constexpr double height = 3600;
    return {width, height};
}

}  // namespace

MainForm::MainForm(std::filesystem::path applicationDirectory)
    : picArc(ArcPicture()),
      picGraph{GraphPicture(), GraphPicture(), GraphPicture(), GraphPicture()},
      m_applicationDirectory(std::move(applicationDirectory)) {}

std::filesystem::path MainForm::InApplicationDirectory(const std::string& file) const {
    return m_applicationDirectory / file;
}

bool MainForm::SolveAnyway(const std::string& warning) {
    return AskYesNo(warning + " Solve anyway?", MessageIcon::Question, Answer::No);
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
