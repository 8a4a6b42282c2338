#include "studies/StudyPage.h"

#include <QPlainTextEdit>
#include <QStackedLayout>

#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"

namespace quarnel02 {

StudyPage::StudyPage(QWidget* parent)
    : QWidget(parent),
      m_contents(new QWidget(this)),
      m_text(new QPlainTextEdit(this)),
      m_layout(new QStackedLayout(this)) {
    m_text->setObjectName(QStringLiteral("txtMessage"));
    m_text->setAccessibleName(QStringLiteral("Message"));
    m_text->setAccessibleDescription(QStringLiteral("Why there is nothing to show"));
    m_text->setReadOnly(true);
    m_text->setFrameShape(QFrame::NoFrame);
    m_layout->addWidget(m_text);
    m_layout->addWidget(m_contents);
    connect(&m_work, &BackgroundWork::Failed, this,
            [this](const QString& text) { ShowText(text.toStdString()); });
    connect(&m_work, &BackgroundWork::Finished, this, &StudyPage::StateChanged);
}

void StudyPage::SetInput(std::optional<StudyInput> input, const std::string& why) {
    GiveUp();
    m_input = std::move(input);
    m_cancelled = false;
    if (m_input) {
        m_outOfDate = true;
        InputChanged(*m_input);
    } else {
        ShowText(why);
    }
    emit StateChanged();
}

void StudyPage::Compute() {
    if (!m_input || !m_outOfDate || m_computing || m_cancelled) {
        return;
    }
    m_computing = true;
    SayInstead(QStringLiteral("Computing..."));
    m_work.Start(Work(*m_input));
    emit StateChanged();
}

void StudyPage::GiveUp() {
    m_computing = false;
    m_work.Cancel();
}

void StudyPage::Cancel() {
    if (!m_computing) {
        return;
    }
    GiveUp();
    m_cancelled = true;
    SayInstead(QStringLiteral("This study was cancelled. Compute (F5) starts it again."));
    emit StateChanged();
}

void StudyPage::ComputeAgain() {
    m_cancelled = false;
    Compute();
}

void StudyPage::Recompute() {
    GiveUp();
    m_cancelled = false;
    if (m_input) {
        m_outOfDate = true;
        Compute();
    }
}

/// In place of the contents, as long as they have never been shown for this model.
void StudyPage::SayInstead(const QString& text) {
    if (m_layout->currentWidget() == m_text) {
        m_text->setPlainText(text);
    }
}

std::vector<StudyTableView*> StudyPage::Tables() const {
    return m_layout->currentWidget() == m_contents ? AllTables() : std::vector<StudyTableView*>();
}

std::vector<StudyPicture*> StudyPage::Pictures() const {
    return m_layout->currentWidget() == m_contents ? AllPictures() : std::vector<StudyPicture*>();
}

void StudyPage::ConnectParts() {
    for (StudyPicture* picture : AllPictures()) {
        connect(picture, &StudyPicture::Asked, this,
                [this, picture](PictureCommand command) { emit PictureAsked(*picture, command); });
    }
    for (StudyTableView* table : AllTables()) {
        connect(table, &StudyTableView::SaveAsked, this,
                [this, table] { emit SaveAsked(table->Table()); });
    }
}

void StudyPage::ShowContents() {
    NoteCurrent();
    Reveal();
}

std::string StudyPage::SubjectOf(const StudyInput& input) const {
    return "Design for " + QuestionText(input.Question) + ".";
}

std::string StudyPage::Message() const {
    return m_layout->currentWidget() == m_text ? m_text->toPlainText().toStdString() : "";
}

/// What is shown from now on belongs to the input as it is.
void StudyPage::NoteCurrent() {
    m_computing = false;
    m_outOfDate = false;
    m_subject = m_input ? SubjectOf(*m_input) : "";
}

void StudyPage::Reveal() {
    m_layout->setCurrentWidget(m_contents);
}

void StudyPage::ShowText(const std::string& text) {
    NoteCurrent();
    m_text->setPlainText(QString::fromStdString(text));
    m_layout->setCurrentWidget(m_text);
}

}  // namespace quarnel02
