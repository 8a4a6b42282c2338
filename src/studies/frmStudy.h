#pragma once

#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "commands/FileCommands.h"
#include "commands/TakeStep.h"
#include "report/Document.h"
#include "shell/MainForm.h"
#include "studies/SaveStudy.h"
#include "studies/StudyPage.h"

namespace quarnel02 {

namespace Ui {
class frmStudy;
}

/// The study window: what follows from the model as it is. It computes again a short while after a
/// change of the model, and says until then that what it shows is out of date.
class frmStudy : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmStudy)

  public:
    /// Runs what an event does to the working copy, with messages for errors; false when it was not
    /// done.
    using Runner = std::function<bool(const std::function<void()>&)>;

    /// What it studies must live as long as it is shown.
    frmStudy(MainForm& form, FileCommands& commands, Runner run, QWidget* parent);
    ~frmStudy() override;

    /// Takes over what has changed: the model, its file, the last design. To be called after every
    /// event, when nobody writes to the working copy; cheap when nothing has changed.
    void Look();

    /// The tabs that are ticked for the report of the model, in their order.
    [[nodiscard]] std::vector<DocumentPart> ReportParts() const;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    /// What of the model has become another one since the last look.
    enum class Change { None, Scenarios, Line };

    void LayOut();
    void LayOutCorner();
    void ConnectPages();
    bool TakeFile();
    Change TakeModel();
    bool TakeDesign();
    void ReadModel(const Database& database);
    void ProposeQuestion();
    void NoteOpened(bool otherFile);
    void HandOn();
    void HandOnTo(StudyPage& page);
    void AddStep(QKeySequence::StandardKey key, HistoryStep step);
    void StoreScenarios(const std::string& step, const std::vector<Scenario>& scenarios);
    [[nodiscard]] std::string Obstacle() const;
    void ComputePage();
    void ShowState();
    void AddKey(const QKeySequence& key, const std::function<void()>& command);
    void ShowTab(int step);
    void CancelOrClose();
    void CopyTables();
    void SavePage();
    void Save(const QString& name, const SavedParts& parts);
    void TakeOut(const StudyPicture& picture, PictureCommand command);
    void NoteSaved(const std::function<std::optional<QString>()>& save);
    [[nodiscard]] QString ProposedDirectory() const;
    [[nodiscard]] QString ProposedName(const QString& what) const;
    [[nodiscard]] std::vector<ShownTable> TablesOfPage() const;
    [[nodiscard]] QString NameOf(StudyPage& page) const;
    [[nodiscard]] std::vector<StudyPage*> Pages() const;
    [[nodiscard]] StudyPage& CurrentPage() const;

    MainForm& m_form;
    EditHistory& m_history;
    CurrentModel& m_current;
    Runner m_run;
    std::unique_ptr<Ui::frmStudy> m_ui;
    QTimer m_pause;  ///< from a change to computing
    std::optional<std::string> m_file;
    std::optional<std::uint64_t> m_inputs;      ///< InputDigest of what was read
    std::optional<std::uint64_t> m_lineInputs;  ///< DesignDigest of what m_line was made of
    std::optional<std::chrono::system_clock::time_point> m_design;
    bool m_chosen = false;  ///< the question is that of a design, or of the user
    std::shared_ptr<const PreparedLine> m_line;
    std::shared_ptr<const DesignOrder> m_opened;
    std::vector<Scenario> m_scenarios;
    std::string m_problem;  ///< why there is no line to study
};

}  // namespace quarnel02
