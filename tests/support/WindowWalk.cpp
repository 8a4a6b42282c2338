#include "support/WindowWalk.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>
#include <set>

#include "widgets/Contrast.h"
#include "widgets/PictureBox.h"

namespace quarnel02::test {

namespace {

template <class... Classes>
bool IsAnyOf(const QObject* object) {
    return ((qobject_cast<const Classes*>(object) != nullptr) || ...);
}

/// Made by the toolkit inside a control of its own.
bool IsInner(const QObject* object) {
    if (object == nullptr || object->objectName().startsWith(QStringLiteral("qt_"))) {
        return true;
    }
    const QObject* parent = object->parent();
    return IsAnyOf<QScrollBar, QHeaderView>(object) ||
           IsAnyOf<QComboBox, QAbstractSpinBox, QAbstractItemView, QTabBar, QLineEdit>(parent) ||
           (parent != nullptr && parent->objectName() == QStringLiteral("qt_scrollarea_viewport"));
}

bool IsWorkedWith(const QWidget* widget) {
    return IsAnyOf<QAbstractButton, QLineEdit, QComboBox, QAbstractSpinBox, QAbstractItemView,
                   QTextEdit, QPlainTextEdit, QTabBar, QAbstractSlider>(widget);
}

std::string NameOf(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString();
}

std::vector<QWidget*> ShownControls(const QWidget& window) {
    std::vector<QWidget*> controls;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == &window && IsWorkedWith(widget) &&
            !IsInner(widget)) {
            controls.push_back(widget);
        }
    }
    return controls;
}

QString TextOf(QWidget& widget, QAccessible::Text kind) {
    QAccessibleInterface* at = QAccessible::queryAccessibleInterface(&widget);
    return at == nullptr ? QString() : at->text(kind).trimmed();
}

void ExpectName(QWidget& widget) {
    EXPECT_FALSE(TextOf(widget, QAccessible::Name).isEmpty()) << NameOf(widget) << " has no name";
}

void ExpectDescription(QWidget& widget) {
    EXPECT_FALSE(TextOf(widget, QAccessible::Description).isEmpty())
        << NameOf(widget) << " has no description";
}

/// Texts and images; a label without either is room for one.
int ExpectLabelsNamed(const QWidget& window) {
    int labels = 0;
    for (auto* label : window.findChildren<QLabel*>()) {
        const bool shows = !label->text().isEmpty() || !label->pixmap(Qt::ReturnByValue).isNull();
        if (label->isVisible() && label->window() == &window && shows && !IsInner(label)) {
            ++labels;
            ExpectName(*label);
        }
    }
    return labels;
}

void ExpectPicturesDescribed(const QWidget& window) {
    for (auto* picture : window.findChildren<PictureBox*>()) {
        if (picture->isVisible() && picture->window() == &window) {
            ExpectName(*picture);
            ExpectDescription(*picture);
        }
    }
}

/// What has the focus as Tab goes through the window, once round.
std::set<const QWidget*> WalkFocus() {
    constexpr int most_steps = 200;
    std::set<const QWidget*> reached;
    for (int step = 0; step < most_steps; ++step) {
        QWidget* before = QApplication::focusWidget();
        if (before == nullptr) {
            break;
        }
        reached.insert(before);
        QTest::keyClick(before, Qt::Key_Tab);
        if (QApplication::focusWidget() == before) {
            QTest::keyClick(before, Qt::Key_Tab, Qt::ControlModifier);
        }
    }
    return reached;
}

bool IsReached(const QWidget* control, const std::set<const QWidget*>& reached) {
    if (reached.contains(control) || reached.contains(control->focusProxy())) {
        return true;
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
        if (!button->shortcut().isEmpty()) {
            return true;
        }
    }
    if (!IsAnyOf<QRadioButton>(control)) {
        return false;
    }
    for (const auto* other : control->parentWidget()->findChildren<QRadioButton*>()) {
        if (reached.contains(other)) {
            return true;
        }
    }
    return false;
}

bool HasItsPlaceInAToolBar(const QWidget* control) {
    return IsAnyOf<QToolBar>(control->parentWidget());
}

void ExpectReadable(const QColor& ink, const QColor& paper, const std::string& name) {
    constexpr double readable = 4.5;
    EXPECT_GE(Contrast(ink, paper), readable)
        << name << ": " << ink.name().toStdString() << " on " << paper.name().toStdString();
}

/// What the texts of a widget stand on: its own ground, or that of the first one below that has
/// one.
QColor PaperOf(const QWidget& widget) {
    const QWidget* at = &widget;
    while (!at->isWindow() && !at->autoFillBackground() &&
           !IsAnyOf<QAbstractButton, QLineEdit, QComboBox, QAbstractSpinBox, QAbstractItemView,
                    QTextEdit, QPlainTextEdit>(at)) {
        at = at->parentWidget();
    }
    return at->palette().color(at->backgroundRole());
}

bool ShowsText(const QWidget* widget) {
    return (IsAnyOf<QLabel>(widget) || IsWorkedWith(widget)) && !IsInner(widget);
}

}  // namespace

void WalkTree(QAccessibleInterface* at, const std::function<void(QAccessibleInterface&)>& visit) {
    if (at == nullptr || !at->isValid() || at->state().invisible) {
        return;
    }
    visit(*at);
    if (at->role() == QAccessible::Table || at->role() == QAccessible::Tree) {
        return;
    }
    for (int i = 0; i < at->childCount(); ++i) {
        WalkTree(at->child(i), visit);
    }
}

int ExpectAccessible(QWidget& window) {
    ExpectName(window);
    std::set<const QObject*> in_tree;
    WalkTree(QAccessible::queryAccessibleInterface(&window),
             [&](QAccessibleInterface& at) { in_tree.insert(at.object()); });
    int controls = 0;
    for (QWidget* control : ShownControls(window)) {
        ++controls;
        EXPECT_TRUE(in_tree.contains(control)) << NameOf(*control) << " is in no tree";
        ExpectName(*control);
        if (!IsAnyOf<QTabBar>(control)) {
            ExpectDescription(*control);
        }
    }
    ExpectPicturesDescribed(window);
    return controls + ExpectLabelsNamed(window);
}

int ExpectKeyboardReachesAll(QWidget& window) {
    if (QApplication::focusWidget() == nullptr) {
        QTest::keyClick(&window, Qt::Key_Tab);
    }
    const std::set<const QWidget*> reached = WalkFocus();
    int controls = 0;
    for (const QWidget* control : ShownControls(window)) {
        if (control->isEnabled() && !HasItsPlaceInAToolBar(control)) {
            ++controls;
            EXPECT_TRUE(IsReached(control, reached)) << NameOf(*control) << " is never reached";
        }
    }
    return controls;
}

int ExpectTextsStandOut(QWidget& window) {
    int texts = 0;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->window() == &window &&
            ShowsText(widget)) {
            ++texts;
            ExpectReadable(widget->palette().color(widget->foregroundRole()), PaperOf(*widget),
                           NameOf(*widget));
        }
    }
    return texts;
}

}  // namespace quarnel02::test
