#include "app/ResultBoxes.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QSplitter>
#include <QToolButton>
#include <algorithm>

#include "app/BoxFrame.h"
#include "app/RestoreSizes.h"
#include "app/WindowMemory.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {

namespace {

enum Graph : std::size_t { Summary = 0, Demand = 1, Line = 2, Costs = 3, Load = 4 };

QString KeyOf(int rows, std::size_t splitter) {
    return QStringLiteral("Results/rows%1-%2").arg(rows).arg(splitter);
}

}  // namespace

ResultBoxes::ResultBoxes(const Splitters& splitters, Box network,
                         const std::array<Box, kGraphs>& graphs, QObject* parent)
    : QObject(parent), m_splitters(splitters), m_network(network), m_graphs(graphs) {
    std::vector<Box> all(m_graphs.begin(), m_graphs.end());
    all.push_back(m_network);
    for (const Box& box : all) {
        const auto toggle = [this, frame = box.Frame] {
            Enlarge(m_enlarged == nullptr ? frame : nullptr);
        };
        connect(box.Frame, &BoxFrame::DoubleClicked, this, toggle);
        connect(box.Button, &QToolButton::clicked, this, toggle);
    }
    for (QSplitter* splitter : {m_splitters.Area, m_splitters.Upper, m_splitters.Lower}) {
        connect(splitter, &QSplitter::splitterMoved, this, [this] { m_moved = true; });
    }
    m_splitters.Area->installEventFilter(this);
    ShowBoxes();
}

/// The splitters have not shared their new size out yet.
bool ResultBoxes::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        QMetaObject::invokeMethod(this, &ResultBoxes::ApplySizes, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

ResultBoxes::Rows ResultBoxes::RowsFor(const std::array<bool, kGraphs>& used) {
    if (std::find(used.begin(), used.end(), true) == used.end()) {
        return Rows::None;
    }
    return used[Demand] || used[Costs] ? Rows::Two : Rows::One;
}

void ResultBoxes::ShowUsed(const std::array<bool, kGraphs>& used) {
    if (used == m_used) {
        return;
    }
    m_used = used;
    Enlarge(nullptr);
    const Rows rows = RowsFor(used);
    if (rows != m_rows) {
        Arrange(rows);
    }
    ShowBoxes();
}

/// What the user made of the present arrangement is kept for its next use.
void ResultBoxes::NoteSizes() {
    if (m_moved) {
        m_sizes[m_rows] = {m_splitters.Area->saveState(), m_splitters.Upper->saveState(),
                           m_splitters.Lower->saveState()};
    }
}

void ResultBoxes::Arrange(Rows rows) {
    NoteSizes();
    m_rows = rows;
    m_moved = false;
    if (rows == Rows::Two) {
        m_splitters.Lower->insertWidget(0, m_graphs[Line].Frame);
    } else {
        m_splitters.Upper->insertWidget(1, m_graphs[Line].Frame);
    }
    ShowBoxes();
    const auto kept = m_sizes.find(rows);
    if (kept == m_sizes.end()) {
        ApplySizes();
        return;
    }
    m_moved = true;
    RestoreSizes(*m_splitters.Area, kept->second[0]);
    RestoreSizes(*m_splitters.Upper, kept->second[1]);
    RestoreSizes(*m_splitters.Lower, kept->second[2]);
}

void ResultBoxes::ApplySizes() {
    if (!m_moved && !IsEnlarged()) {
        ShareByDefault(m_rows);
    }
}

/// The summary is as wide as its lines ask for; what is more goes to the pictures. The widths add
/// up, so that they come out the same whatever the boxes were before.
void ResultBoxes::ShareByDefault(Rows rows) const {
    constexpr int unit = 100;
    const int width = m_splitters.Area->width();
    const int summary = std::min(SummaryWidth(), 45 * width / 100);
    const int handles = (rows == Rows::Two ? 1 : 2) * m_splitters.Upper->handleWidth();
    const int beside = width - summary - handles;
    if (rows == Rows::Two) {
        m_splitters.Area->setSizes({26 * unit, 38 * unit, 36 * unit});
        m_splitters.Upper->setSizes({summary, beside, 0});
        m_splitters.Lower->setSizes({50 * unit, 50 * unit});
    } else {
        m_splitters.Area->setSizes({45 * unit, 55 * unit, 0});
        m_splitters.Upper->setSizes({summary, beside / 2, 0, beside - beside / 2});
    }
}

int ResultBoxes::SummaryWidth() const {
    constexpr int columns = 68;
    QFont font = FixedPitchFont();
    font.setPixelSize(QFontInfo(m_graphs[Summary].Frame->font()).pixelSize());
    return columns * QFontMetrics(font).horizontalAdvance(QLatin1Char('0'));
}

void ResultBoxes::ShowBoxes() {
    m_network.Frame->setVisible(m_enlarged == nullptr || m_enlarged == m_network.Frame);
    for (std::size_t i = 0; i < kGraphs; ++i) {
        BoxFrame* frame = m_graphs[i].Frame;
        frame->setVisible(m_enlarged == nullptr ? m_used[i] : m_enlarged == frame);
    }
    for (QSplitter* row : {m_splitters.Upper, m_splitters.Lower}) {
        const auto frames = row->findChildren<BoxFrame*>(QString(), Qt::FindDirectChildrenOnly);
        row->setVisible(std::any_of(frames.begin(), frames.end(),
                                    [](const BoxFrame* frame) { return !frame->isHidden(); }));
    }
}

void ResultBoxes::Enlarge(BoxFrame* frame) {
    if (frame == m_enlarged) {
        return;
    }
    if (m_enlarged == nullptr) {
        NoteSizes();
    }
    m_enlarged = frame;
    ShowBoxes();
    ApplySizes();
    emit EnlargedChanged(IsEnlarged());
}

void ResultBoxes::Toggle() {
    BoxFrame* chosen = m_network.Frame;
    for (const Box& box : m_graphs) {
        const QWidget* focus = QApplication::focusWidget();
        if (focus != nullptr && box.Frame->isAncestorOf(focus)) {
            chosen = box.Frame;
        }
    }
    Enlarge(IsEnlarged() ? nullptr : chosen);
}

void ResultBoxes::Restore() {
    Enlarge(nullptr);
}

void ResultBoxes::Remember(WindowMemory& memory) {
    if (!IsEnlarged()) {
        NoteSizes();
    }
    for (const auto& [rows, states] : m_sizes) {
        for (std::size_t i = 0; i < states.size(); ++i) {
            memory.Keep(KeyOf(static_cast<int>(rows), i), states.at(i));
        }
    }
}

void ResultBoxes::Recall(const WindowMemory& memory) {
    for (const Rows rows : {Rows::One, Rows::Two}) {
        std::array<QByteArray, 3> states;
        for (std::size_t i = 0; i < states.size(); ++i) {
            states.at(i) = memory.Bytes(KeyOf(static_cast<int>(rows), i));
        }
        if (!states[0].isEmpty()) {
            m_sizes[rows] = states;
        }
    }
}

}  // namespace quarnel02
