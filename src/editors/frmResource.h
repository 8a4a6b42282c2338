#pragma once

#include <memory>

#include "editors/RecordForm.h"

namespace quarnel02 {

namespace Ui {
class frmResource;
}

/// Editor of the candidate kinds of equipment.
class frmResource : public RecordForm {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmResource)

  public:
    /// Opens the resources of the working copy; throws what that throws.
    frmResource(MainForm& form, EditHistory& history, QWidget* parent);
    ~frmResource() override;

  protected:
    void ShowCurrent(bool keepTyped) override;
    std::vector<FieldValue> Values() override;
    [[nodiscard]] bool IsUnsaved() const override;

  private:
    void ShowType();
    void SetType(const QString& code);
    void StepType(int step);
    void TypeType(const QString& text);

    std::unique_ptr<Ui::frmResource> m_ui;
    QString m_storedType;
};

}  // namespace quarnel02
