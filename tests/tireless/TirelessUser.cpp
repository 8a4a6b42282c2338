#include "tireless/TirelessUser.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "app/QtPaths.h"
#include "app/frmFile.h"
#include "editors/EditorDialog.h"
#include "tireless/SeenWidgets.h"
#include "tireless/SomeTexts.h"

namespace quarnel02::test {

namespace {

constexpr std::size_t kEventsTold = 40;

const std::vector<QString> kNewFiles = {QStringLiteral("a"), QStringLiteral("b.mdb"),
                                        QStringLiteral("c d"), QStringLiteral("small.mdb")};

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
        Note("leave", "Escape in " + NameOf(HearerIn(*front)));
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
        const auto names = UsableIn<QLineEdit>(dialog);
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
    for (auto* format : UsableIn<QComboBox>(dialog)) {
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

}  // namespace quarnel02::test
