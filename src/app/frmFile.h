#pragma once

#include <QDialog>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "commands/FileDialog.h"

namespace quarnel02 {

namespace Ui {
class frmFile;
}

/// The dialog for opening and saving: drives, directories, the model files of the directory, the
/// name and, for saving, the format.
class frmFile : public QDialog, public FileDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmFile)

  public:
    /// Begins in the examples that came with the program while the user has been nowhere yet.
    frmFile(std::filesystem::path applicationDirectory, QWidget* parent);
    frmFile(std::filesystem::path applicationDirectory, std::filesystem::path examples,
            QWidget* parent);
    ~frmFile() override;

    void SetForm(bool isOpen) override;
    void ShowModal() override;

    /// Cancel, Escape and the close box.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void ConnectControls();
    [[nodiscard]] QString FirstDirectory() const;
    [[nodiscard]] std::vector<std::string> LastUsed() const;
    void SelectDriveOf(const QString& directory);
    void Drive1_Change();
    void SetDirectory(const QString& directory);
    void RefreshFiles();
    void EnterDirectory();
    void TakeFile();
    void cmdOpen_Click();
    void ApplyExtension();
    void ShowFormat();
    void AlignBoxes();
    void SplitTypedPath();
    bool MayOpen();
    bool MaySave();
    [[nodiscard]] bool NamesAFile() const;
    [[nodiscard]] QString SelectedFile() const;

    std::unique_ptr<Ui::frmFile> m_ui;
    std::filesystem::path m_applicationDirectory;
    std::filesystem::path m_examples;
    QString m_directory;  ///< that Dir1 and File1 show
};

}  // namespace quarnel02
