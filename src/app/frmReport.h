#pragma once

#include <QDialog>
#include <memory>

namespace quarnel02 {

namespace Ui {
class frmReport;
}

/// Shows a text file, read only and in fixed pitch, beside the main window.
class frmReport : public QDialog {
    Q_OBJECT

  public:
    frmReport(QWidget* parent, QString file);
    ~frmReport() override;

    [[nodiscard]] const QString& File() const { return m_file; }
    /// Reads the file again.
    void Reload();

  private:
    std::unique_ptr<Ui::frmReport> m_ui;
    QString m_file;
};

/// Shows the file in the viewer that `parent` already has for it, else in a new one.
void ShowReport(QWidget* parent, const QString& file);

}  // namespace quarnel02
