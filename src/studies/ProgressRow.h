#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

namespace quarnel02 {

class StudyPage;

namespace Ui {
class ProgressRow;
}

/// What a tab shows is about, or how far its work has come, with what ends the work and what starts
/// it again.
class ProgressRow : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ProgressRow)

  public:
    explicit ProgressRow(QWidget* parent = nullptr);
    ~ProgressRow() override;

    /// Shows the state of a page, and until the next call how its work goes on. The page must live
    /// as long as the row.
    void Follow(const StudyPage& page);
    /// Says something until the page computes again.
    void Say(const QString& text);

  signals:
    void CancelAsked();
    void ComputeAsked();

  private:
    void ShowProgress();
    [[nodiscard]] QString StateText() const;

    std::unique_ptr<Ui::ProgressRow> m_ui;
    const StudyPage* m_page = nullptr;
    QString m_said;
    QTimer m_tick;
};

}  // namespace quarnel02
