// The results area of frmMain: its boxes, their titles and words, and the help for a first start.
#include <QAbstractScrollArea>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <utility>

#include "app/BoxFrame.h"
#include "app/ResultBoxes.h"
#include "app/frmMain.h"
#include "commands/ResultMarks.h"
#include "ui_frmMain.h"
#include "widgets/ElidedLabel.h"
#include "widgets/PictureWords.h"

namespace quarnel02 {

namespace {

/// Clicks on a view that scrolls come to its viewport.
ResultBoxes::Box BoxOf(BoxFrame* frame, QWidget* title, QWidget* view, QToolButton* button) {
    frame->Watch(*title);
    frame->Watch(*view);
    if (const auto* area = qobject_cast<const QAbstractScrollArea*>(view)) {
        frame->Watch(*area->viewport());
    }
    return {frame, button};
}

}  // namespace

void frmMain::ConnectResults() {
    m_boxes = new ResultBoxes(
        {m_ui->splRight, m_ui->splUpper, m_ui->splLower},
        BoxOf(m_ui->frameArc, m_ui->label_picArc, m_ui->picArc, m_ui->btnEnlarge_Arc),
        {BoxOf(m_ui->frameGraph_0, m_ui->label_picGraph_0, m_ui->picGraph_0, m_ui->btnEnlarge_0),
         BoxOf(m_ui->frameGraph_1, m_ui->label_picGraph_1, m_ui->picGraph_1, m_ui->btnEnlarge_1),
         BoxOf(m_ui->frameGraph_2, m_ui->label_picGraph_2, m_ui->picGraph_2, m_ui->btnEnlarge_2),
         BoxOf(m_ui->frameGraph_3, m_ui->label_picGraph_3, m_ui->picGraph_3, m_ui->btnEnlarge_3),
         BoxOf(m_ui->frameLoad, m_ui->label_picLoad, m_ui->picLoad, m_ui->btnEnlarge_Load)},
        this);
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    escape->setEnabled(false);
    escape->setAutoRepeat(false);
    connect(escape, &QShortcut::activated, m_boxes, &ResultBoxes::Restore);
    connect(m_boxes, &ResultBoxes::EnlargedChanged, this, [this, escape](bool enlarged) {
        escape->setEnabled(enlarged);
        m_ui->mnuViewEnlarge->setText(enlarged ? QStringLiteral("Show all box&es")
                                               : QStringLiteral("&Enlarge a box"));
    });
    connect(m_ui->mnuViewEnlarge, &QAction::triggered, m_boxes, &ResultBoxes::Toggle);
}

void frmMain::ConnectFirstSteps() {
    connect(m_ui->cmdFirstExample, &QPushButton::clicked, this, [this] {
        const QPoint below = m_ui->cmdFirstExample->rect().bottomLeft();
        m_ui->mnuFileExamples->popup(m_ui->cmdFirstExample->mapToGlobal(below));
    });
    for (const QPushButton* button : {m_ui->cmdFirstTasks, m_ui->cmdFirstPaste}) {
        connect(button, &QPushButton::clicked, m_ui->mnuViewTasks, &QAction::trigger);
    }
}

/// A box is used when something is drawn in it. Without tasks the network has nothing to show but
/// where to begin.
void frmMain::ShowResults() {
    std::array<bool, ResultBoxes::kGraphs> used{};
    std::transform(picGraph.begin(), picGraph.end(), used.begin(),
                   [](const Picture& picture) { return !picture.Figures().empty(); });
    used.back() = !picLoad.Figures().empty();
    m_boxes->ShowUsed(used);
    const bool begun = m_ui->txtTasks->text().toInt() > 0;
    m_ui->stkArc->setCurrentWidget(begun ? static_cast<QWidget*>(m_ui->scrArc) : m_ui->pageFirst);
    m_ui->chkFitWidth->setVisible(begun);
}

QString frmMain::TitleOf(const PictureBox& box) const {
    const bool stochastic = !picGraph[3].Figures().empty();
    const std::array titles = {
        std::pair(m_ui->picArc, QStringLiteral("Arc network")),
        std::pair(m_ui->picGraph_0, stochastic ? QStringLiteral("Final solution")
                                               : QStringLiteral("Solution summary")),
        std::pair(m_ui->picGraph_1, QStringLiteral("Demand distribution")),
        std::pair(m_ui->picGraph_2, QStringLiteral("Line")),
        std::pair(m_ui->picGraph_3, QStringLiteral("Expected annual cost")),
        std::pair(m_ui->picLoad, QStringLiteral("Station load"))};
    return std::find_if(titles.begin(), titles.end(),
                        [&](const auto& each) { return each.first == &box; })
        ->second;
}

QString frmMain::MarkOfPictures() const {
    return m_marks.OfPictures() == Standing::OutOfDate ? QStringLiteral(" (out of date)")
                                                       : QString();
}

void frmMain::ShowTitles() {
    const QString mark = MarkOfPictures();
    m_ui->label_picArc->setText(TitleOf(*m_ui->picArc) + mark);
    m_ui->label_picGraph_0->setText(TitleOf(*m_ui->picGraph_0) + mark);
    m_ui->label_picGraph_1->setText(TitleOf(*m_ui->picGraph_1) + mark);
    m_ui->label_picGraph_2->setText(TitleOf(*m_ui->picGraph_2) + mark);
    m_ui->label_picGraph_3->setText(TitleOf(*m_ui->picGraph_3) + mark);
    m_ui->label_picLoad->setText(TitleOf(*m_ui->picLoad) + mark);
}

/// What the pictures show, for those who do not see them.
void frmMain::DescribePictures() {
    const std::array boxes = {m_ui->picGraph_0, m_ui->picGraph_1, m_ui->picGraph_2,
                              m_ui->picGraph_3};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes.at(i)->setAccessibleDescription(PictureWords(picGraph.at(i)));
    }
    m_ui->picLoad->setAccessibleDescription(PictureWords(picLoad));
    const QString line = LastDesign
                             ? QStringLiteral(" The line of the last design, ") +
                                   QString::fromStdString(ShortDesignText(*LastDesign)) +
                                   QStringLiteral(", is marked; the summary lists its stations.")
                             : QStringLiteral(" No line has been designed yet.");
    const QString network =
        QStringLiteral("Ranges of consecutive tasks that a station can do, drawn as arcs over ") +
        m_size->text() + QLatin1Char('.') + line;
    for (QWidget* box :
         {static_cast<QWidget*>(m_ui->picArc), static_cast<QWidget*>(m_ui->scrArc)}) {
        box->setAccessibleDescription(network);
    }
}

}  // namespace quarnel02
