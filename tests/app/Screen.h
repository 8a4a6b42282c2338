#pragma once

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <functional>
#include <string>

namespace quarnel02::test {

/// Waits until `holds`, at most 20 seconds.
bool WaitUntil(const std::function<bool()>& holds);

enum class WindowManager { None, Openbox };

/// An X server without a monitor, and keyboard and mouse on it. Without a window manager the focus
/// goes where Focus puts it.
class Screen {
  public:
    /// Throws std::runtime_error when Xvfb, xdotool or the window manager is missing.
    explicit Screen(WindowManager manager = WindowManager::None);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    Screen(Screen&&) = delete;
    Screen& operator=(Screen&&) = delete;

    [[nodiscard]] const QString& Display() const { return m_display; }

    /// Whether a visible window's title matches the regular expression.
    bool Shows(const std::string& title);
    /// Waits for the window and gives it the keyboard.
    bool Focus(const std::string& title);
    /// Presses a key such as "ctrl+o"; types a text.
    void Key(const std::string& key);
    void Type(const std::string& text);
    /// Clicks into a window, near its upper left corner.
    void Click(const std::string& title);
    /// Runs xdotool, and gives what it writes.
    std::string Tool(const QStringList& arguments);
    /// Number of the first visible window of that title.
    QString Window(const std::string& title);
    /// What the screen shows.
    [[nodiscard]] QImage Image() const;

  private:
    void Start(WindowManager manager);

    QTemporaryDir m_frame;
    QProcess m_server;
    QProcess m_manager;
    QString m_display;
};

}  // namespace quarnel02::test
