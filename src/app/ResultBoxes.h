#pragma once

#include <QByteArray>
#include <QObject>
#include <array>
#include <map>

class QSplitter;
class QToolButton;

namespace quarnel02 {

class BoxFrame;
class WindowMemory;

/// Which boxes stand in the results area, and how they share it: the network above, below it what
/// the last design has filled, in one row or, with the charts of a stochastic design, in two. The
/// shares follow the size of the area until the user moves an edge. One box can have the whole area
/// for a while.
class ResultBoxes : public QObject {
    Q_OBJECT

  public:
    static constexpr std::size_t kGraphs = 5;

    struct Splitters {
        QSplitter* Area;
        QSplitter* Upper;
        QSplitter* Lower;
    };
    struct Box {
        BoxFrame* Frame;
        QToolButton* Button;  ///< enlarges it, or puts it back
    };

    /// `graphs` in the order of picGraph, then that of the station load.
    ResultBoxes(const Splitters& splitters, Box network, const std::array<Box, kGraphs>& graphs,
                QObject* parent);

    /// Shows the boxes that are used, beside the network.
    void ShowUsed(const std::array<bool, kGraphs>& used);

    /// Enlarges the box in which the focus is, else the network; or puts all boxes back.
    void Toggle();
    void Restore();
    [[nodiscard]] bool IsEnlarged() const { return m_enlarged != nullptr; }

    /// How the area is shared, for each arrangement.
    void Remember(WindowMemory& memory);
    void Recall(const WindowMemory& memory);

  signals:
    void EnlargedChanged(bool enlarged);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Rows { None, One, Two };

    void Enlarge(BoxFrame* frame);
    void Arrange(Rows rows);
    void ApplySizes();
    void ShowBoxes();
    void ShareByDefault(Rows rows) const;
    [[nodiscard]] int SummaryWidth() const;
    void NoteSizes();
    [[nodiscard]] static Rows RowsFor(const std::array<bool, kGraphs>& used);

    Splitters m_splitters;
    Box m_network;
    std::array<Box, kGraphs> m_graphs;
    std::array<bool, kGraphs> m_used{};
    Rows m_rows = Rows::None;
    BoxFrame* m_enlarged = nullptr;
    bool m_moved = false;  ///< the user has moved an edge of the present arrangement
    std::map<Rows, std::array<QByteArray, 3>> m_sizes;  ///< states of splitters that were moved
};

}  // namespace quarnel02
