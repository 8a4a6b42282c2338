#pragma once

#include <string>

#include "shell/MainForm.h"
#include "widgets/SheetModel.h"

namespace quarnel02 {

/// All tasks, or all resources, as a sheet with a column for every field. Behind the last record
/// stands an empty row; whatever is typed into it makes a new record.
class RecordSheet : public SheetModel {
    Q_OBJECT

  public:
    /// Shows the working copy; throws what the store reports. The form must outlive the sheet.
    RecordSheet(MainForm& form, RecordKind kind, QObject* parent);

    /// Shows what the working copy holds now. Throws what the store reports.
    void Reload();

    [[nodiscard]] int Records() const;

    [[nodiscard]] TextBlock CopyBlock(const CellRange& range) const override;
    [[nodiscard]] std::string MissingFor(const BlockEdit& edit) const override;
    Misfits SetBlock(const BlockEdit& edit) override;
    Misfits ClearBlock(std::string_view verb, const CellRange& range) override;

    /// Figures stand on the right; the empty row says what it is for.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  signals:
    /// A store has been made; `step` names it: "Edit task 5", "Paste 480 cells".
    void Stored(const std::string& step);

  protected:
    [[nodiscard]] QString Text(int row, int column) const override;
    [[nodiscard]] QString Heading(int section, Qt::Orientation orientation) const override;

  private:
    [[nodiscard]] std::string StepOf(std::string_view verb, std::size_t row,
                                     std::size_t cells) const;
    Misfits Store(const CellEdit& edit, const std::string& step);

    MainForm& m_form;
    RecordKind m_kind;
    InputTables m_tables;  ///< as they were read last
};

}  // namespace quarnel02
