#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/Dice.h"
#include "tireless/UserFiles.h"

class QAbstractItemView;
class QDialog;
class QLineEdit;
class QMenu;

namespace quarnel02::test {

/// Types, clicks and chooses at random, with real events on widgets that can be seen and used.
/// Modal dialogs and menus are lived in, from inside their own event loops, for a few events and
/// then left, so that none waits for ever.
class TirelessUser : public QObject {
  public:
    TirelessUser(Dice& dice, UserFiles& files);
    ~TirelessUser() override;

    /// One event on a window that nothing modal stands in front of.
    void Act(QWidget& top);
    /// Presses keys where the focus is.
    static void Press(QWidget& top, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Takes the good model in the next dialog that asks for a file.
    void WantGoodModel() { m_wantsGood = true; }
    /// Something happened that is counted and told.
    void Note(const std::string& what, const std::string& detail = "");

    [[nodiscard]] int Events() const { return m_events; }
    /// The last ones, oldest first.
    [[nodiscard]] std::string LastEvents() const;

    /// Called after each event inside an editor.
    std::function<void()> AfterEditorEvent = [] {};
    std::map<std::string, int> Reached;  ///< kinds of events, and how often

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Visit(QPointer<QWidget> front);
    void LeaveBehind(const QPointer<QWidget>& front);
    [[nodiscard]] int Patience(const QWidget& front);
    void ActInMenu(QMenu& menu);
    void ActInPopup(QWidget& popup);
    void ActInDialog(QDialog& dialog);
    void NameFile(QDialog& dialog, QLineEdit& name);
    [[nodiscard]] QString FileFor(const QDialog& dialog);
    void AnswerMessage(QDialog& dialog);
    void ActOnWidgets(QWidget& top);
    void PressSomeKey(QWidget& top);
    void TypeSomewhere(QWidget& top);
    static void TypeText(QWidget& top, const QString& text);
    void ClickSomewhere(QWidget& top);
    void ClickButton(QWidget& top);
    void ClickCell(QAbstractItemView& view);
    void PasteBlock(QWidget& top);
    void ChangeClipboard();
    void AskForContextMenu(QWidget& top);
    void Click(QWidget& widget, QPoint place, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    template <class Choice>
    const Choice& OneOf(const std::vector<Choice>& choices) {
        return choices[static_cast<std::size_t>(m_dice(0, static_cast<int>(choices.size()) - 1))];
    }

    Dice& m_dice;
    UserFiles& m_files;
    int m_events = 0;
    bool m_wantsGood = false;
    std::deque<std::string> m_last;
};

}  // namespace quarnel02::test
