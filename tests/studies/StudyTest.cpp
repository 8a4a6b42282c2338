#include "studies/StudyTest.h"

#include "basic/Files.h"
#include "shell/LoadLineModel.h"

namespace quarnel02::test {

void StudyTest::StartPump(const std::string& more) {
    Start(ReadFile(std::filesystem::path(QUARNEL02_SOURCES) / ".." / "examples" / "pump.sql") +
          more);
}

void StudyTest::Open() {
    Item("mnuViewStudy").trigger();
    Study = Window->findChild<frmStudy*>();
    ASSERT_NE(Study, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Study));
}

StudyPage& StudyTest::Page() const {
    return *static_cast<StudyPage*>(Part<QTabWidget>("tabStudy").currentWidget());
}

void StudyTest::Show(Tab tab) {
    Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(tab));
    WaitUntilCurrent();
}

void StudyTest::WaitUntilCurrent() {
    constexpr int patience = 30000;
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return !Page().IsOutOfDate() && !Page().IsBusy(); }, patience));
}

std::vector<std::string> StudyTest::Row(const std::string& table, std::size_t row) const {
    std::vector<std::string> texts;
    for (const ShownCell& cell : Table(table).Rows.at(row)) {
        texts.push_back(cell.Text);
    }
    return texts;
}

std::vector<std::string> StudyTest::Column(const std::string& table,
                                           const std::string& heading) const {
    const auto headings = Headings(Table(table));
    const auto column = static_cast<std::size_t>(
        std::find(headings.begin(), headings.end(), heading) - headings.begin());
    std::vector<std::string> texts;
    for (const auto& row : Table(table).Rows) {
        texts.push_back(row.at(column).Text);
    }
    return texts;
}

std::string StudyTest::Message() const {
    auto* text = Page().findChild<QPlainTextEdit*>(QStringLiteral("txtMessage"));
    return text->isVisible() ? text->toPlainText().toStdString() : "";
}

std::string StudyTest::Clipboard() {
    return QGuiApplication::clipboard()->text().toStdString();
}

void StudyTest::Put(const std::string& box, const std::string& text) const {
    auto& line = Part<QLineEdit>(box);
    line.setFocus(Qt::TabFocusReason);
    line.selectAll();
    QTest::keyClicks(&line, QString::fromStdString(text));
    QTest::keyClick(&line, Qt::Key_Return);
}

void StudyTest::Choose(const std::string& box, int item) const {
    auto& combo = Part<QComboBox>(box);
    combo.setFocus();
    QTest::keyClick(&combo, item > combo.currentIndex() ? Qt::Key_End : Qt::Key_Home);
    while (combo.currentIndex() > item) {
        QTest::keyClick(&combo, Qt::Key_Up);
    }
}

PreparedLine StudyTest::Line() const {
    return Prepare(LoadLineModel(Copy->Open()));
}

}  // namespace quarnel02::test
