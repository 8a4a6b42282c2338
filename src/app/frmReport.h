#pragma once

#include <QDialog>
#include <QList>
#include <QTextEdit>
#include <memory>

namespace quarnel02 {

class WindowMemory;

namespace Ui {
class frmReport;
}

/// Shows a text file, read only and in fixed pitch, beside the main window. Its text can be
/// searched, copied, saved as text or PDF, and printed.
class frmReport : public QDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmReport)

  public:
    /// `memory`, if any, knows where a report was saved last.
    frmReport(QWidget* parent, QString file, WindowMemory* memory = nullptr);
    ~frmReport() override;

    [[nodiscard]] const QString& File() const { return m_file; }
    /// Reads the file again.
    void Reload();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ChooseSize();
    void ConnectFind();
    void Find();
    void Go(int steps);
    void ShowFound();
    void Copy();
    void Save();
    void Print();

    std::unique_ptr<Ui::frmReport> m_ui;
    QString m_file;
    WindowMemory* m_memory;
    QList<QTextCursor> m_found;  ///< in the order of the text
    qsizetype m_current = -1;    ///< place in m_found
};

/// Shows the file in the viewer that `parent` already has for it, else in a new one.
void ShowReport(QWidget* parent, const QString& file, WindowMemory* memory = nullptr);

}  // namespace quarnel02
