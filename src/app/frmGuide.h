#pragma once

#include <QDialog>
#include <memory>

namespace quarnel02 {

namespace Ui {
class frmGuide;
}

/// The user guide, beside the main window.
class frmGuide : public QDialog {
    Q_OBJECT

  public:
    explicit frmGuide(QWidget* parent);
    ~frmGuide() override;

  private:
    std::unique_ptr<Ui::frmGuide> m_ui;
};

}  // namespace quarnel02
