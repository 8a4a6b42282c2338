#pragma once

#include <optional>
#include <vector>

#include "study/ScenarioCells.h"
#include "widgets/SheetModel.h"

namespace quarnel02 {

/// Every figure that a scenario may change, beside that of the base. What is typed becomes a
/// difference; an emptied cell has none.
class ScenarioSheet : public SheetModel {
    Q_OBJECT

  public:
    static constexpr int kTyped = 1;  ///< the column that is typed into

    using SheetModel::SheetModel;

    /// Shows another scenario, or the same one over another base.
    void SetScenario(DesignOrder base, std::vector<Difference> differences);
    /// Shows nothing.
    void Clear();

    [[nodiscard]] TextBlock CopyBlock(const CellRange& range) const override;
    [[nodiscard]] std::string MissingFor(const BlockEdit& /*edit*/) const override { return {}; }
    Misfits SetBlock(const BlockEdit& edit) override;
    Misfits ClearBlock(std::string_view verb, const CellRange& range) override;

    /// The base is not edited here.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Figures with a difference stand out.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  signals:
    /// The scenario shall have these differences.
    void Changed(const std::vector<quarnel02::Difference>& differences);

  protected:
    [[nodiscard]] QString Text(int row, int column) const override;
    [[nodiscard]] QString Heading(int section, Qt::Orientation orientation) const override;

  private:
    [[nodiscard]] const Difference* DifferenceAt(std::size_t row) const;
    void SetCell(const BlockEdit& edit, std::size_t row, std::size_t column,
                 std::vector<Difference>& differences, Misfits& refused) const;

    DesignOrder m_base;
    std::vector<Difference> m_rows;  ///< what each row is about
    std::vector<Difference> m_differences;
};

}  // namespace quarnel02
