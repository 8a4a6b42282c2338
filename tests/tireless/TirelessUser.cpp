#include "tireless/TirelessUser.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include "app/QtPaths.h"
#include "app/frmFile.h"
#include "editors/EditorDialog.h"

namespace quarnel02::test {

namespace {

constexpr std::size_t kEventsTold = 40;
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

const std::vector<QString> kTexts = {
    QStringLiteral("1"),       QStringLiteral("2"),
    QStringLiteral("12.5"),    QStringLiteral("30"),
    QStringLiteral("60000"),   QStringLiteral("100,000"),
    QStringLiteral("50%"),     QStringLiteral("0"),
    QStringLiteral("-3"),      QStringLiteral("1e9"),
    QStringLiteral("0.25"),    QStringLiteral("Press"),
    QStringLiteral("x"),       QStringLiteral("20/1/400"),
    QStringLiteral("32768"),   QStringLiteral("Demand = 80000; LaborCost +10%"),
    QStringLiteral(" "),       QStringLiteral("a'b\"c"),
    QStringLiteral("Größe µ"), QStringLiteral("999999999999999")};

const std::vector<QString> kClips = {QStringLiteral("12\t15\n20\t25\n"),
                                     QStringLiteral("30"),
                                     QStringLiteral("40000\t30\n80000\t70"),
                                     QStringLiteral("Weld\nGlue\n"),
                                     QStringLiteral("\"a\tb\"\t\n\n\t7"),
                                     QStringLiteral("Bench\tOne\t0\t3000\t1.5\t96\t1\t4\t1"),
                                     QStringLiteral("nonsense"),
                                     QString(2000, QLatin1Char('9')),
                                     QStringLiteral("1\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1")};

const std::vector<QString> kNewFiles = {QStringLiteral("a"), QStringLiteral("b.mdb"),
                                        QStringLiteral("c d"), QStringLiteral("small.mdb")};

std::string NameOf(const QWidget& widget) {
    return widget.objectName().isEmpty() ? widget.metaObject()->className()
                                         : widget.objectName().toStdString();
}

std::string KindOf(const QWidget& front) {
    if (qobject_cast<const QMessageBox*>(&front) != nullptr) {
        return "message";
    }
    return qobject_cast<const QMenu*>(&front) != nullptr ? "menu" : NameOf(front);
}

bool IsPrinting(const QWidget& front) {
    return QByteArray(front.metaObject()->className()).startsWith("QPrint") ||
           QByteArray(front.metaObject()->className()).startsWith("QPageSetup");
}

bool AsksForFile(const QWidget& front) {
    return qobject_cast<const frmFile*>(&front) != nullptr ||
           qobject_cast<const QFileDialog*>(&front) != nullptr;
}

/// Who gets a key: an open popup before the focus.
QWidget& HearerIn(QWidget& top) {
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* window = popup == nullptr ? &top : popup;
    QWidget* focus = window->focusWidget();
    const bool hears = focus != nullptr && focus->isVisible() && focus->isEnabled();
    return hears ? *focus : *window;
}

}  // namespace

TirelessUser::TirelessUser(Dice& dice, UserFiles& files) : m_dice(dice), m_files(files) {
    qApp->installEventFilter(this);
}

TirelessUser::~TirelessUser() {
    qApp->removeEventFilter(this);
}

void TirelessUser::Note(const std::string& what, const std::string& detail) {
    ++Reached[what];
    m_last.push_back(detail.empty() ? what : what + ": " + detail);
    if (m_last.size() > kEventsTold) {
        m_last.pop_front();
    }
}

std::string TirelessUser::LastEvents() const {
    std::string all;
    for (const std::string& event : m_last) {
        all += "  " + event + "\n";
    }
    return all;
}

bool TirelessUser::eventFilter(QObject* watched, QEvent* event) {
    auto* front = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && front != nullptr && front->isWindow() &&
        (front->isModal() || qobject_cast<QMenu*>(front) != nullptr)) {
        QTimer::singleShot(0, front, [this, front] { Visit(front); });
    }
    return false;
}

int TirelessUser::Patience(const QWidget& front) {
    constexpr int in_editor = 30;
    constexpr int elsewhere = 4;
    return m_dice(2, qobject_cast<const EditorDialog*>(&front) != nullptr ? in_editor : elsewhere);
}

/// A dialog goes on behind one that it opens, until that one is closed.
void TirelessUser::Visit(QPointer<QWidget> front) {
    if (!front || !front->isVisible()) {
        return;
    }
    const std::string kind = KindOf(*front);
    auto* box = qobject_cast<QMessageBox*>(front.data());
    Note("in " + kind, box == nullptr ? "" : box->text().left(120).toStdString());
    if (kind == "frmStatus") {
        if (m_dice.OneIn(4)) {
            ClickButton(*front);
        }
        return;
    }
    const bool edits = qobject_cast<EditorDialog*>(front.data()) != nullptr;
    for (int left = Patience(*front); left > 0 && front && front->isVisible(); --left) {
        Act(*front);
        if (edits && front && front->isVisible()) {
            AfterEditorEvent();
        }
    }
    LeaveBehind(front);
}

void TirelessUser::LeaveBehind(const QPointer<QWidget>& front) {
    constexpr int most_tries = 3;
    for (int i = 0; i < most_tries && front && front->isVisible(); ++i) {
        Press(*front, Qt::Key_Escape);
    }
    if (front && front->isVisible()) {
        if (auto* box = qobject_cast<QMessageBox*>(front.data())) {
            AnswerMessage(*box);
        } else {
            front->close();
        }
    }
    if (front && front->isVisible()) {
        Note("hidden by force", KindOf(*front));
        front->hide();
    }
}

void TirelessUser::Press(QWidget& top, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&HearerIn(top), key, modifiers);
}

void TirelessUser::Act(QWidget& top) {
    ++m_events;
    if (top.windowType() != Qt::Popup && QApplication::activeWindow() != &top) {
        top.activateWindow();  // as a desktop does when another window goes
        QCoreApplication::processEvents();
    }
    QWidget* popup = QApplication::activePopupWidget();
    if (auto* menu = qobject_cast<QMenu*>(&top)) {
        ActInMenu(*menu);
    } else if (popup != nullptr && popup != &top) {
        ActInPopup(*popup);
    } else if (auto* dialog = qobject_cast<QDialog*>(&top);
               dialog != nullptr && dialog->isModal()) {
        ActInDialog(*dialog);
    } else {
        ActOnWidgets(top);
    }
}

/// Goes to one of the entries and takes it.
void TirelessUser::ActInMenu(QMenu& menu) {
    std::vector<QAction*> entries;
    for (QAction* action : menu.actions()) {
        if (action->isVisible() && action->isEnabled() && !action->isSeparator()) {
            entries.push_back(action);
        }
    }
    if (entries.empty() || m_dice.OneIn(6)) {
        Press(menu, Qt::Key_Escape);
        return;
    }
    QAction* wanted = OneOf(entries);
    Note("menu entry", wanted->text().toStdString());
    for (int i = 0; i < menu.actions().size() && menu.activeAction() != wanted; ++i) {
        QTest::keyClick(&menu, Qt::Key_Down);
    }
    QTest::keyClick(&menu, wanted->menu() == nullptr ? Qt::Key_Return : Qt::Key_Right);
}

void TirelessUser::ActInPopup(QWidget& popup) {
    const std::vector<Qt::Key> keys = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape};
    Note("popup");
    Press(popup, OneOf(keys));
}

void TirelessUser::ActInDialog(QDialog& dialog) {
    if (IsPrinting(dialog)) {
        Press(dialog, m_dice.OneIn(2) ? Qt::Key_PageDown : Qt::Key_Escape);
    } else if (AsksForFile(dialog)) {
        const auto names = Usable<QLineEdit>(dialog);
        if (!names.empty() && !m_dice.OneIn(8)) {
            NameFile(dialog, *names.front());
        } else {
            Press(dialog, Qt::Key_Escape);
        }
    } else if (qobject_cast<QMessageBox*>(&dialog) != nullptr) {
        AnswerMessage(dialog);
    } else if (qobject_cast<QInputDialog*>(&dialog) != nullptr && !m_dice.OneIn(3)) {
        auto* line = dialog.findChild<QLineEdit*>();
        line->setFocus();
        line->selectAll();
        TypeText(dialog, m_dice.OneIn(3) ? OneOf(kTexts) : QStringLiteral("60000"));
        Press(dialog, Qt::Key_Return);
    } else {
        ActOnWidgets(dialog);
    }
}

/// Only by whole names in the user's directory: nothing outside it is ever written.
void TirelessUser::NameFile(QDialog& dialog, QLineEdit& name) {
    const QString file = FileFor(dialog);
    m_wantsGood = false;
    Note("file", QFileInfo(file).fileName().toStdString());
    for (auto* format : Usable<QComboBox>(dialog)) {
        if (format->objectName() == QLatin1String("cboFormat")) {
            QTest::keyClick(format, m_dice.OneIn(2) ? Qt::Key_Down : Qt::Key_Up);
        }
    }
    name.setFocus();
    name.selectAll();
    TypeText(dialog, file);
    Press(dialog, Qt::Key_Return);
}

QString TirelessUser::FileFor(const QDialog& dialog) {
    const auto pick = [this](const QStringList& files) {
        return files[m_dice(0, static_cast<int>(files.size()) - 1)];
    };
    const QString directory = ToQString(m_files.Directory()) + QLatin1Char('/');
    const auto* models = qobject_cast<const frmFile*>(&dialog);
    const auto* others = qobject_cast<const QFileDialog*>(&dialog);
    if (models != nullptr && models->OpenMode) {
        return m_wantsGood ? m_files.GoodModel() : pick(m_files.Models());
    }
    if (others != nullptr && others->fileMode() == QFileDialog::Directory) {
        return directory + (m_dice.OneIn(6) ? "more" : "sheets");
    }
    if (others != nullptr && others->acceptMode() == QFileDialog::AcceptOpen) {
        return pick(m_files.Workbooks());
    }
    return directory + OneOf(kNewFiles);
}

void TirelessUser::AnswerMessage(QDialog& dialog) {
    ClickButton(dialog);
}

template <class Kind>
std::vector<Kind*> TirelessUser::Usable(QWidget& top) const {
    std::vector<Kind*> usable;
    for (Kind* widget : top.findChildren<Kind*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->window() == &top &&
            !widget->visibleRegion().isEmpty()) {
            usable.push_back(widget);
        }
    }
    return usable;
}

/// A block that fits the columns of some sheet, into a cell of one in sight.
void TirelessUser::PasteBlock(QWidget& top) {
    std::vector<QAbstractItemView*> sheets;
    for (auto* view : Usable<QAbstractItemView>(top)) {
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
    const auto lines = Usable<QLineEdit>(top);
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

/// Each letter goes where the focus is by then: the first one opens the editor of a cell.
void TirelessUser::TypeText(QWidget& top, const QString& text) {
    const QPointer<QWidget> window(&top);
    for (const QChar letter : text) {
        if (!window || !window->isVisible()) {
            return;
        }
        const auto key = letter.unicode() < 128 ? static_cast<Qt::Key>(letter.toUpper().unicode())
                                                : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, &HearerIn(top), key, QString(letter), Qt::NoModifier);
    }
}

void TirelessUser::ClickButton(QWidget& top) {
    const auto buttons = Usable<QAbstractButton>(top);
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
    const auto widgets = Usable<QWidget>(top);
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
    const auto widgets = Usable<QWidget>(top);
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
