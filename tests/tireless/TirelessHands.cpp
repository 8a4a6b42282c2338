// What the tireless user does to the widgets of a window.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

#include "editors/EditorDialog.h"
#include "tireless/SeenWidgets.h"
#include "tireless/SomeTexts.h"
#include "tireless/TirelessUser.h"

namespace quarnel02::test {

namespace {

constexpr int kTold = 40;  // letters of a text

struct Keys {
    Qt::Key Key;
    Qt::KeyboardModifiers With = Qt::NoModifier;
};

const std::vector<Keys> kKeys = {{Qt::Key_Tab},
                                 {Qt::Key_Tab},
                                 {Qt::Key_Backtab, Qt::ShiftModifier},
                                 {Qt::Key_Down},
                                 {Qt::Key_Down},
                                 {Qt::Key_Up},
                                 {Qt::Key_Left},
                                 {Qt::Key_Right},
                                 {Qt::Key_Right},
                                 {Qt::Key_Return},
                                 {Qt::Key_Return},
                                 {Qt::Key_Escape},
                                 {Qt::Key_Space},
                                 {Qt::Key_Delete},
                                 {Qt::Key_Backspace},
                                 {Qt::Key_F2},
                                 {Qt::Key_F6},
                                 {Qt::Key_Home},
                                 {Qt::Key_End},
                                 {Qt::Key_PageUp},
                                 {Qt::Key_PageDown},
                                 {Qt::Key_Insert},
                                 {Qt::Key_F11},
                                 {Qt::Key_Down, Qt::ShiftModifier},
                                 {Qt::Key_Right, Qt::ShiftModifier},
                                 {Qt::Key_A, Qt::ControlModifier},
                                 {Qt::Key_C, Qt::ControlModifier},
                                 {Qt::Key_X, Qt::ControlModifier},
                                 {Qt::Key_V, Qt::ControlModifier},
                                 {Qt::Key_V, Qt::ControlModifier},
                                 {Qt::Key_D, Qt::ControlModifier},
                                 {Qt::Key_R, Qt::ControlModifier},
                                 {Qt::Key_Z, Qt::ControlModifier},
                                 {Qt::Key_Z, Qt::ControlModifier},
                                 {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier},
                                 {Qt::Key_Home, Qt::ControlModifier},
                                 {Qt::Key_End, Qt::ControlModifier}};

const std::vector<QString> kClips = {QStringLiteral("12\t15\n20\t25\n"),
                                     QStringLiteral("30"),
                                     QStringLiteral("40000\t30\n80000\t70"),
                                     QStringLiteral("Weld\nGlue\n"),
                                     QStringLiteral("\"a\tb\"\t\n\n\t7"),
                                     QStringLiteral("Bench\tOne\t0\t3000\t1.5\t96\t1\t4\t1"),
                                     QStringLiteral("nonsense"),
                                     QString(2000, QLatin1Char('9')),
                                     QStringLiteral("1\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1")};

}  // namespace

/// A block that fits the columns of some sheet, into a cell of one in sight.
void TirelessUser::PasteBlock(QWidget& top) {
    std::vector<QAbstractItemView*> sheets;
    for (auto* view : UsableIn<QAbstractItemView>(top)) {
        if (view->model() != nullptr && view->model()->rowCount() > 0 &&
            qobject_cast<QHeaderView*>(view) == nullptr) {
            sheets.push_back(view);
        }
    }
    if (sheets.empty()) {
        return;
    }
    QAbstractItemView& sheet = *OneOf(sheets);
    ClickCell(sheet);
    QGuiApplication::clipboard()->setText(OneOf(kClips));
    Note("paste", QGuiApplication::clipboard()->text().left(kTold).toStdString());
    Press(top, Qt::Key_V, Qt::ControlModifier);
}

void TirelessUser::ActOnWidgets(QWidget& top) {
    constexpr int keys = 35;
    constexpr int typing = 55;
    constexpr int clicks = 90;
    constexpr int clipboard = 97;
    constexpr int all = 100;
    const int dice = m_dice(1, all);
    if (qobject_cast<EditorDialog*>(&top) != nullptr && m_dice.OneIn(8)) {
        PasteBlock(top);
    } else if (dice <= keys) {
        PressSomeKey(top);
    } else if (dice <= typing) {
        TypeSomewhere(top);
    } else if (dice <= clicks) {
        ClickSomewhere(top);
    } else if (dice <= clipboard) {
        ChangeClipboard();
    } else {
        AskForContextMenu(top);
    }
}

void TirelessUser::PressSomeKey(QWidget& top) {
    const Keys& keys = OneOf(kKeys);
    Note("key", QKeySequence(static_cast<int>(keys.Key) | static_cast<int>(keys.With))
                        .toString()
                        .toStdString() +
                    " in " + NameOf(top));
    if (keys.Key == Qt::Key_V && keys.With == Qt::ControlModifier) {
        ++Reached["paste"];
    }
    Press(top, keys.Key, keys.With);
}

/// Over the text of a box, or into the cell of a sheet that has the focus.
void TirelessUser::TypeSomewhere(QWidget& top) {
    const QString& text = OneOf(kTexts);
    const auto lines = UsableIn<QLineEdit>(top);
    QWidget* target = top.focusWidget();
    if (!lines.empty() && !m_dice.OneIn(3)) {
        QLineEdit* line = OneOf(lines);
        Click(*line, line->rect().center());
        target = top.focusWidget();
    }
    if (target == nullptr || !target->isVisible() || !target->isEnabled()) {
        return;
    }
    Note("type", text.toStdString() + " into " + NameOf(*target));
    if (auto* line = qobject_cast<QLineEdit*>(target)) {
        line->selectAll();
    }
    const QPointer<QWidget> window(&top);
    TypeText(top, text);
    if (window && window->isVisible() && m_dice.OneIn(2)) {
        Press(top, Qt::Key_Return);
    }
}

void TirelessUser::ClickButton(QWidget& top) {
    const auto buttons = UsableIn<QAbstractButton>(top);
    if (!buttons.empty()) {
        QAbstractButton* button = OneOf(buttons);
        Note("click", button->text().toStdString() + " in " + NameOf(top));
        Click(*button, button->rect().center());
    }
}

void TirelessUser::ClickSomewhere(QWidget& top) {
    if (m_dice.OneIn(2)) {
        ClickButton(top);
        return;
    }
    const auto widgets = UsableIn<QWidget>(top);
    if (widgets.empty()) {
        return;
    }
    QWidget* widget = OneOf(widgets);
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    if (view == nullptr && widget->parentWidget() != nullptr) {
        view = qobject_cast<QAbstractItemView*>(widget->parentWidget());
    }
    if (view != nullptr && view->model() != nullptr && view->model()->rowCount() > 0) {
        ClickCell(*view);
        return;
    }
    Note("click", NameOf(*widget) + " in " + NameOf(top));
    Click(*widget, {m_dice(0, widget->width() - 1), m_dice(0, widget->height() - 1)});
}

void TirelessUser::ClickCell(QAbstractItemView& view) {
    const QModelIndex cell =
        view.model()->index(m_dice(0, view.model()->rowCount() - 1),
                            m_dice(0, std::max(1, view.model()->columnCount()) - 1));
    view.scrollTo(cell);
    Note("cell", NameOf(view));
    const QPoint place = view.visualRect(cell).center();
    const QPointer<QWidget> port(view.viewport());
    Click(*view.viewport(), place, m_dice.OneIn(4) ? Qt::ShiftModifier : Qt::NoModifier);
    if (port && port->isVisible() && m_dice.OneIn(4)) {
        QTest::mouseDClick(port, Qt::LeftButton, Qt::NoModifier, place);
    }
}

void TirelessUser::Click(QWidget& widget, QPoint place, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(&widget, Qt::LeftButton, modifiers, place);
}

/// Other programs fill it with what they like, and empty it.
void TirelessUser::ChangeClipboard() {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    switch (m_dice(1, 5)) {
        case 1:
            Note("clipboard killed");
            clipboard.clear();
            break;
        case 2: {
            Note("clipboard of no text");
            auto* data = new QMimeData;
            data->setData(QStringLiteral("image/png"), QByteArray("\x89PNG\0broken", 11));
            clipboard.setMimeData(data);
            break;
        }
        default:
            clipboard.setText(OneOf(kClips));
            Note("clipboard", clipboard.text().left(kTold).toStdString());
    }
}

void TirelessUser::AskForContextMenu(QWidget& top) {
    const auto widgets = UsableIn<QWidget>(top);
    if (widgets.empty()) {
        return;
    }
    QWidget* widget = OneOf(widgets);
    Note("context menu", NameOf(*widget));
    const QPoint place = widget->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &event);
}

}  // namespace quarnel02::test
