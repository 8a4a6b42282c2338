#pragma once

#include <QObject>
#include <QPointer>
#include <string>
#include <vector>

#include "commands/NumberedRecords.h"
#include "widgets/FieldBox.h"

class QWidget;

namespace quarnel02 {

/// The text boxes that show the fields of a record, in the order in which Enter goes through
/// them. A box whose text is not the stored one is marked.
class RecordBoxes : public QObject {
    Q_OBJECT

  public:
    struct Field {
        FieldBox* Box;
        const char* Column;
    };

    /// Enter in the last box moves the focus to `last`.
    RecordBoxes(const char* table, std::vector<Field> fields, QWidget* last, QObject* parent);

    /// Shows stored texts, box by box.
    void Show(const std::vector<std::string>& texts);
    /// The same, but leaves alone what has been typed and not stored.
    void ShowBehind(const std::vector<std::string>& texts);
    [[nodiscard]] bool Has(const FieldBox* box) const;
    /// Empties the boxes and keeps them from being typed in, or lets them be typed in again.
    void Enable(bool enabled);
    [[nodiscard]] bool AnyUnsaved() const;
    [[nodiscard]] bool AnyEmpty() const;

    /// The fields as the table takes them (EnteredValue), named by the accessible names of their
    /// boxes. FocusRefused brings the focus to the box whose text made it throw.
    [[nodiscard]] std::vector<FieldValue> Values();
    void FocusRefused();

  signals:
    /// A text, or what is stored, has become another.
    void Changed();

  private:
    void Mark(std::size_t field);

    const char* m_table;
    std::vector<Field> m_fields;
    std::vector<QString> m_stored;
    QPointer<FieldBox> m_refused;
};

}  // namespace quarnel02
