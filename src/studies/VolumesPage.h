#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "studies/StudyPage.h"
#include "studies/VolumeStudy.h"

class QCheckBox;

namespace quarnel02 {

class FieldBox;

namespace Ui {
class VolumesPage;
}

/// The cheapest lines over volume.
class VolumesPage : public StudyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VolumesPage)

  public:
    explicit VolumesPage(QWidget* parent = nullptr);
    ~VolumesPage() override;

  protected:
    BackgroundWork::Work Work(const StudyInput& input) override;
    [[nodiscard]] std::vector<StudyTableView*> AllTables() const override;
    [[nodiscard]] std::vector<StudyPicture*> AllPictures() const override;
    [[nodiscard]] std::string SubjectOf(const StudyInput& input) const override;
    void InputChanged(const StudyInput& input) override;

  private:
    struct VolumeOutcome {
        StudyInput Input;
        VolumeStudy Study;
    };

    [[nodiscard]] std::array<QCheckBox*, kEquipmentClasses> TypeBoxes() const;
    void ConnectBox(FieldBox& box) const;
    void ShowSpan();
    [[nodiscard]] VolumeSpan Typed() const;
    void TakeSpan();
    void Show(const VolumeOutcome& outcome);
    void OfferTypes();
    void ShowFiltered();
    [[nodiscard]] VolumeFilter Filter() const;

    std::unique_ptr<Ui::VolumesPage> m_ui;
    VolumeSpan m_span;
    bool m_spanChosen = false;   ///< by the user
    bool m_limitChosen = false;  ///< by the user
    std::optional<VolumeOutcome> m_shown;
};

}  // namespace quarnel02
