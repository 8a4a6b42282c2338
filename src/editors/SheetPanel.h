#pragma once

#include <QWidget>
#include <memory>

#include "sheets/RecordOrder.h"
#include "widgets/SheetView.h"

class QPushButton;

namespace quarnel02 {

namespace Ui {
class SheetPanel;
}

/// A sheet of records under the commands for their order, as buttons, keys and in the sheet's menu.
/// It only tells which of them was called for.
class SheetPanel : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SheetPanel)

  public:
    explicit SheetPanel(QWidget* parent = nullptr);
    ~SheetPanel() override;

    /// Shows the model, which must outlive the panel; `noun` is what a record is called.
    void Begin(SheetModel& sheet, const QString& noun);

    [[nodiscard]] SheetView& Sheet() const;
    /// The selected rows, from 0.
    [[nodiscard]] Places SelectedRows() const;

  signals:
    void Insert();
    void Duplicate();
    void DeleteRows();
    void MoveUp();
    void MoveDown();

  private:
    void AddCommand(QPushButton& button, const QString& text, const QString& help,
                    const QList<QKeySequence>& keys, void (SheetPanel::*command)());

    std::unique_ptr<Ui::SheetPanel> m_ui;
};

}  // namespace quarnel02
