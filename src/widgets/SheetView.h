#pragma once

#include <QPersistentModelIndex>
#include <QTableView>
#include <functional>
#include <string>
#include <utility>

#include "widgets/SheetModel.h"

class QAction;

namespace quarnel02 {

class SheetDelegate;
class SheetHeader;

/// A sheet as spreadsheets have it. Typing starts editing, F2 edits, Enter goes down (behind a run
/// of Tabs to the column where it began), Tab right, Escape takes the cell back; Ctrl+Tab and
/// Shift+Ctrl+Tab leave the sheet. Blocks are selected, copied, cut and pasted as tab-separated
/// text, filled down (Ctrl+D) and right (Ctrl+R), and cleared (Delete); a menu offers the same.
///
/// Going to another control stores a cell that fits. A text that does not fit stays in its editor;
/// a block that does not fit changes nothing. One message names the first cells that do not.
class SheetView : public QTableView {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SheetView)

  public:
    explicit SheetView(QWidget* parent = nullptr);
    /// A sheet whose cells look otherwise; it takes their delegate over.
    SheetView(SheetDelegate* cells, QWidget* parent);
    ~SheetView() override;

    /// The model must outlive the view.
    void SetSheet(SheetModel& sheet);

    /// `mayAct` is asked before a key, a click or the menu does anything; false leaves all as it
    /// is.
    void SetGuard(std::function<bool()> mayAct) { m_guard = std::move(mayAct); }

    /// Columns as wide as their texts ask for, within reason, and the row headings as well.
    void FitColumns();

    /// Room for the first rows and columns.
    [[nodiscard]] QSize sizeHint() const override;

    /// The selected block, or the current cell.
    [[nodiscard]] CellRange SelectedBlock() const;
    /// Makes a row the current one, in the column of the current cell, and selects its cell.
    void GoToRow(int row);
    /// Selects rows `first` to `last` in the columns of the selection; the current cell is in
    /// row `current`.
    void SelectRows(int first, int last, int current);

    [[nodiscard]] bool IsEditing() const;
    /// Stores what a cell is being edited to. False when it does not fit; it then stays in its
    /// editor, which has the focus.
    bool FinishEditing();
    /// Closes the editor of a cell without storing.
    void CancelEditing();

    // What keys and menu do.
    void Copy();
    void Cut();
    void Paste();
    void FillDown();
    void FillRight();
    void Clear();

  signals:
    /// The current cell has moved to another row; -1 for none.
    void CurrentRowChanged(int row);
    /// Something was typed, pasted or filled in these columns.
    void StoredIn(int first, int last);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    void AddAction(const QString& text, const QKeySequence& key, void (SheetView::*action)());
    [[nodiscard]] bool MayAct();
    void LeaveCell(int key);
    void Move(int key);
    void MoveTo(int row, int column);
    bool GoOn(const QKeyEvent& event);
    bool Extend(const QKeyEvent& event);
    void ExtendTo(const QModelIndex& cell);
    void LeaveSheet(bool forward);
    enum class Refusal { Tell, KeepQuiet };
    bool Finish(Refusal refusal);
    bool StoreTyped(const QModelIndex& cell, const QString& text, Refusal refusal);
    void SelectBlock(const BlockEdit& edit);
    void TellOf(const BlockEdit& edit);
    [[nodiscard]] bool MayGrow(const BlockEdit& edit);
    void Fill(const BlockEdit& edit);
    bool Store(const std::string& failure, const std::function<Misfits()>& store,
               Refusal refusal = Refusal::Tell);

    SheetModel* m_sheet = nullptr;
    SheetDelegate* m_cells;
    SheetHeader* m_columns;
    SheetHeader* m_rows;
    std::function<bool()> m_guard;
    QPersistentModelIndex m_anchor;  ///< of a selection that is being extended
    int m_runStart = -1;             ///< column in which a run of Tabs began
    bool m_moving = false;           ///< by Tab or Enter
    bool m_finishing = false;        ///< the editing of a cell
};

}  // namespace quarnel02
