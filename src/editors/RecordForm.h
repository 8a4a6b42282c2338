#pragma once

#include <memory>
#include <string>
#include <vector>

#include "commands/NumberedRecords.h"
#include "editors/EditorDialog.h"
#include "editors/RecordBoxes.h"

class QLabel;
class QPushButton;

namespace quarnel02 {

/// What the task and the resource editor have in common: one record at a time, walked, added,
/// saved and deleted with buttons, after each of which a box is ready to be typed over. What is
/// typed and not saved is dropped by everything but Save; boxes, button and a line of text tell
/// of it until then.
class RecordForm : public EditorDialog {
    Q_OBJECT

  public:
    /// Whether anything of the model was another when the window was closed than when it opened.
    [[nodiscard]] bool ChangedModel() const { return m_records.Changed(); }

  protected:
    struct Buttons {
        QPushButton* Previous;
        QPushButton* Next;
        QPushButton* AddNew;
        QPushButton* Save;
        QPushButton* Delete;
        QPushButton* OK;
    };

    /// `noun` is what a record is called, in lower case.
    RecordForm(MainForm& form, EditHistory& history, NumberedTable table, const char* noun,
               QWidget* parent);

    /// `columns` says which column each of the boxes shows, by position; `first` is the box that
    /// typing begins in. Shows the first record.
    void Begin(const Buttons& buttons, RecordBoxes& boxes, std::vector<int> columns,
               FieldBox& first, QLabel& info);

    /// Shows the current record, or the empty table.
    virtual void ShowCurrent();
    virtual void DeleteCurrent() { m_records.Delete(); }
    /// What Save writes; throws for a text that a field does not take.
    virtual std::vector<FieldValue> Values() { return m_boxes->Values(); }
    [[nodiscard]] virtual bool IsUnsaved() const { return m_boxes->AnyUnsaved(); }
    /// Shows whether there is something to save.
    void ShowState();

    void ShowAgain() override;
    /// The count is written and, after a change, the network rebuilt.
    void Finish() override { m_records.Close(); }

    [[nodiscard]] NumberedRecords& Records() { return m_records; }

  private:
    void ShowSaveButton(bool unsaved);
    void SelectText();
    void Go(void (NumberedRecords::*step)());
    void AddNew();
    void Save();
    void Delete();

    NumberedRecords m_records;
    QString m_noun;
    Buttons m_buttons{};
    RecordBoxes* m_boxes = nullptr;
    std::vector<int> m_columns;
    FieldBox* m_first = nullptr;
    QLabel* m_info = nullptr;
    QString m_saveCaption;
};

}  // namespace quarnel02
