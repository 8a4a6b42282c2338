#pragma once

#include <memory>
#include <string>
#include <vector>

#include "commands/NumberedRecords.h"
#include "editors/EditorDialog.h"
#include "editors/RecordBoxes.h"
#include "editors/RecordSheet.h"

class QLabel;
class QPushButton;

namespace quarnel02 {

class SheetPanel;

/// What the task and the resource editor have in common: one record at a time, walked, added,
/// saved and deleted with buttons, after each of which a box is ready to be typed over; and beside
/// it a sheet of all records, whose current row is always that of the record. F6 goes from one to
/// the other.
///
/// What has been typed is stored by everything that leaves it, moving on and closing as well as
/// Save; where it does not fit, a message says so, and nothing else happens. Escape takes it back
/// first and closes the window second. Boxes, button and a line of text tell of it until then.
class RecordForm : public EditorDialog {
    Q_OBJECT

  public:
    /// Whether anything of the model was another when the window was closed than when it opened.
    [[nodiscard]] bool ChangedModel() const { return m_records.Changed(); }

    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    struct Controls {
        QPushButton* First;
        QPushButton* Previous;
        QPushButton* Next;
        QPushButton* Last;
        FieldBox* GoTo;
        QPushButton* AddNew;
        QPushButton* Save;
        QPushButton* Delete;
        QPushButton* OK;
        QLabel* Info;
        QWidget* Record;  ///< the panel that all of these but OK stand on
        SheetPanel* Sheet;
    };

    RecordForm(MainForm& form, EditHistory& history, const NumberedTable& table, QWidget* parent);

    /// `columns` says which column each of the boxes shows, by position; `first` is the box that
    /// typing begins in. Shows the first record.
    void Begin(const Controls& controls, RecordBoxes& boxes, std::vector<int> columns,
               FieldBox& first);

    /// Shows the current record, or that there is none. `keepTyped` leaves alone what is not saved.
    virtual void ShowCurrent(bool keepTyped);
    virtual void DeleteCurrent() { m_records.Delete(); }
    /// What Save writes; throws for a text that a field does not take.
    virtual std::vector<FieldValue> Values() { return m_boxes->Values(); }
    [[nodiscard]] virtual bool IsUnsaved() const { return m_boxes->AnyUnsaved(); }
    /// Shows whether there is something to save.
    void ShowState();

    void ShowAgain() override;
    /// The count is written and, after a change, the network rebuilt.
    void Finish() override { m_records.Close(); }

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

    [[nodiscard]] NumberedRecords& Records() { return m_records; }

  private:
    void ConnectButtons();
    void ConnectSheet();
    void FitIntoScreen();

    void Show(bool keepTyped = false);
    void ShowButtons();
    void ShowSaveButton(bool unsaved);
    [[nodiscard]] QString PlaceText() const;
    [[nodiscard]] FieldBox* BoxToTypeIn() const;
    static void SelectText(FieldBox* box);

    [[nodiscard]] bool Settle();
    void Run(const std::function<void()>& command);
    void Go(void (NumberedRecords::*step)());
    void GoToTyped();
    void AddNew();
    bool Save();
    void Delete();
    void DeleteAsAsked();
    void TakeBack();
    void SwitchSides();

    void FollowSheet(int row);
    void ShowRecordOf(int row);
    void NoteStore(const std::string& step);
    [[nodiscard]] std::size_t PlaceInSelection() const;
    void Reorder(const std::string& step, const NumberedRecords::OrderChange& change,
                 std::size_t current);
    using SelectionChange = Reordered (*)(InputTables, RecordKind, const Places&);
    void ChangeSelected(const char* verb, const char* way, SelectionChange change);
    void InsertAbove();
    void DeleteSelected();
    [[nodiscard]] Places Selected() const;

    NumberedRecords m_records;
    RecordSheet m_sheet;
    RecordKind m_kind;
    QString m_noun;
    Controls m_controls{};
    RecordBoxes* m_boxes = nullptr;
    std::vector<int> m_columns;
    FieldBox* m_first = nullptr;
    QString m_saveCaption;
    bool m_placed = false;   ///< on the screen
    bool m_showing = false;  ///< the sheet follows the record just now
};

}  // namespace quarnel02
