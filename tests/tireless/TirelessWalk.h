#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/frmMain.h"
#include "basic/Files.h"
#include "support/Dice.h"
#include "support/TestModel.h"
#include "tireless/TirelessUser.h"

namespace quarnel02::test {

/// The main window, for a user whose process outlives the program.
class RestartedMain : public frmMain {
  public:
    using frmMain::frmMain;
    [[noreturn]] void EndProgram() override;

    bool Ended = false;
};

/// A session after the other of one tireless user, and what must hold after each of the events.
class TirelessWalk {
  public:
    explicit TirelessWalk(unsigned seed);
    ~TirelessWalk();
    TirelessWalk(const TirelessWalk&) = delete;
    TirelessWalk& operator=(const TirelessWalk&) = delete;
    TirelessWalk(TirelessWalk&&) = delete;
    TirelessWalk& operator=(TirelessWalk&&) = delete;

    /// Ends early with the first promise that is broken.
    void Run(int events);

    /// What was broken; empty when all held.
    [[nodiscard]] const std::vector<std::string>& Broken() const { return m_broken; }
    [[nodiscard]] std::string LastEvents() const { return m_user.LastEvents(); }
    [[nodiscard]] const std::map<std::string, int>& Reached() const { return m_user.Reached; }
    [[nodiscard]] int Events() const { return m_user.Events(); }

  private:
    using Task = void (TirelessWalk::*)();
    struct Card {
        QKeySequence Keys;
        const char* Entry;  ///< of a menu, where there are no keys
        Task Do = nullptr;  ///< where there is neither
    };

    void Start();
    void Restart();
    void WatchActions();
    void Step();
    void PlayCard();
    void Choose(const char* entry);
    void ActSomewhere();
    void FocusOnList();
    void UndoAll();
    void Press(const QKeySequence& keys);
    void OpenGoodModel();
    void DesignFixed();
    void DesignStochastic();
    static void Settle();
    void Check();
    void CheckEditor();
    void CheckWindow(const class StoredModel& model);
    void CheckStart(const std::string& inputs);
    void CheckDesign(const class StoredModel& model);
    void CheckFiles();
    void NoteSteps();
    void Blame(const std::string& promise) { m_broken.push_back(promise); }
    [[nodiscard]] bool CanUndo() { return m_window->History().CanUndo(); }

    TemporaryDirectory m_place;
    TestModel m_application;
    UserFiles m_files;
    Dice m_dice;
    TirelessUser m_user;
    std::unique_ptr<RestartedMain> m_window;
    std::vector<Card> m_deck;
    std::vector<std::string> m_broken;
    std::string m_start;       ///< inputs when the history began
    bool m_otherModel = true;  ///< the event may have loaded one
    std::string m_step;        ///< text of Undo
    std::chrono::system_clock::time_point m_designed{};
};

}  // namespace quarnel02::test
