#pragma once

#include <QTableView>
#include <string>
#include <vector>

#include "editors/EditorTest.h"

namespace quarnel02::test {

inline constexpr const char* kNoRow = "Time: -- sec   Tool #: ---   Tool Cost: $----";

/// Three tasks, two resources; of the five stored pairs one has the time 0.
inline constexpr const char* kGrid =
    "UPDATE Gen SET Tasks = 3, Resources = 2;"
    "INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta'), (3, 'Gamma');"
    "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 0, 0, 100, 1, 1, 1),"
    " (2, 'Prs', 'Press', 1, 0, 0, 100, 1, 1, 1);"
    "INSERT INTO Matrix VALUES (1, 1, 11.5, 3, 500), (1, 2, 12, 1, 0), (2, 2, 0, 1, 0),"
    " (2, 3, 23, 1, 10);";

/// The matrix editor of a model, with the cells found by task and resource.
class MatrixTest : public EditorTest {
  protected:
    QTableView& Grid() const { return Part<QTableView>("picMatrix"); }
    QModelIndex Cell(int task, int resource) const {
        return Grid().model()->index(task - 1, resource - 1);
    }
    bool IsChecked(int task, int resource) const {
        return Cell(task, resource).data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked;
    }
    /// "task,resource" of every checked cell.
    std::vector<std::string> Checked() const {
        std::vector<std::string> cells;
        for (int task = 1; task <= Grid().model()->rowCount(); ++task) {
            for (int resource = 1; resource <= Grid().model()->columnCount(); ++resource) {
                if (IsChecked(task, resource)) {
                    cells.push_back(std::to_string(task) + "," + std::to_string(resource));
                }
            }
        }
        return cells;
    }
    void Click(int task, int resource, Qt::MouseButton button = Qt::LeftButton) const {
        Grid().scrollTo(Cell(task, resource));
        QTest::mouseClick(Grid().viewport(), button, Qt::NoModifier,
                          Grid().visualRect(Cell(task, resource)).center());
    }
    /// Fills the cell editor, which the next step opens, and presses its OK.
    void Answer(const std::string& time, const std::string& tool, const std::string& cost) {
        OnDialog([=, this] {
            Put("txtTaskInfo_0", time);
            Put("txtTaskInfo_1", tool);
            Put("txtTaskInfo_2", cost);
            Press("cmdOK");
        });
    }
    std::string Heading(Qt::Orientation orientation, int number, int role) const {
        return Grid().model()->headerData(number - 1, orientation, role).toString().toStdString();
    }
    std::string Current() const {
        return std::to_string(Grid().currentIndex().row() + 1) + "," +
               std::to_string(Grid().currentIndex().column() + 1);
    }
};

}  // namespace quarnel02::test
