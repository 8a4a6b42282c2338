#pragma once

#include <QDialog>
#include <memory>

namespace quarnel02 {

namespace Ui {
class frmStatus;
}

/// Says what a long operation is doing. It stays open until the operation hides it.
class frmStatus : public QDialog {
    Q_OBJECT

  public:
    explicit frmStatus(QWidget* parent);
    ~frmStatus() override;

    /// Sets lblStatus, and shows it at once.
    void SetStatus(const QString& text);
    /// Steps done of all; a number of 0 for all is unknown.
    void SetProgress(int done, int all);

  protected:
    /// Escape does not end the operation, nor does it hide the window.
    void reject() override {}

  private:
    std::unique_ptr<Ui::frmStatus> m_ui;
};

}  // namespace quarnel02
