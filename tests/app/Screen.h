#pragma once

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <functional>
#include <string>

namespace quarnel02::test {

/// Waits until `holds`, at most 20 seconds.
bool WaitUntil(const std::function<bool()>& holds);

/// An X server without a monitor, and a keyboard on it. There is no window manager: the focus
/// goes where Focus puts it.
class Screen {
  public:
    /// Throws std::runtime_error when Xvfb or xdotool is missing.
    Screen();
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
    /// What the screen shows.
    [[nodiscard]] QImage Image() const;

  private:
    std::string Tool(const QStringList& arguments);

    QTemporaryDir m_frame;
    QProcess m_server;
    QString m_display;
};

}  // namespace quarnel02::test
