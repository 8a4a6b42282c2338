#pragma once

#include <gmock/gmock.h>

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <string>
#include <vector>

#include "app/WindowTest.h"
#include "line/Pathways.h"
#include "studies/StudyPage.h"
#include "studies/StudyTableView.h"
#include "studies/frmStudy.h"

namespace quarnel02::test {

enum class Tab { Line, Volumes, Alternatives, Sensitivity, Scenarios };

/// The main window with the study window opened from its View menu.
class StudyTest : public WindowTest {
  protected:
    /// Starts with the pump model, or with another one.
    void StartPump(const std::string& more = "");
    /// View > Study.
    void Open();
    /// Shows a tab and waits until it is up to date.
    void Show(Tab tab);
    void WaitUntilCurrent();

    template <class Widget>
    Widget& Part(const std::string& name) const {
        auto* widget = Study->findChild<Widget*>(QString::fromStdString(name));
        if (widget == nullptr) {
            throw std::runtime_error("no control " + name);
        }
        return *widget;
    }
    [[nodiscard]] StudyPage& Page() const;
    [[nodiscard]] const ShownTable& Table(const std::string& name) const {
        return Part<StudyTableView>(name).Table();
    }
    /// Texts of a row as shown.
    [[nodiscard]] std::vector<std::string> Row(const std::string& table, std::size_t row) const;
    [[nodiscard]] std::vector<std::string> Column(const std::string& table,
                                                  const std::string& heading) const;
    /// The text that stands in place of the page's contents; "" when these are shown.
    [[nodiscard]] std::string Message() const;
    [[nodiscard]] bool IsMarked() const { return Part<QLabel>("lblStudyOutOfDate").isVisible(); }
    [[nodiscard]] static std::string Clipboard();

    /// Types over a box of the study window and presses Enter.
    void Put(const std::string& box, const std::string& text) const;
    void Choose(const std::string& box, int item) const;

    /// The model as the studies take it.
    [[nodiscard]] PreparedLine Line() const;

    frmStudy* Study = nullptr;
};

}  // namespace quarnel02::test
