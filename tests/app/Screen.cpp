#include "app/Screen.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QTest>
#include <QtEndian>
#include <stdexcept>

namespace quarnel02::test {

namespace {

constexpr int kPatience = 20000;  // ms

QString FirstOf(const std::string& lines) {
    return QString::fromStdString(lines.substr(0, lines.find('\n')));
}

void Require(const char* program) {
    if (QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty()) {
        throw std::runtime_error(std::string(program) + " is missing; run scripts/setup");
    }
}

}  // namespace

bool WaitUntil(const std::function<bool()>& holds) {
    constexpr int pause = 20;  // ms
    QElapsedTimer clock;
    clock.start();
    while (!holds()) {
        if (clock.elapsed() > kPatience) {
            return false;
        }
        QTest::qWait(pause);
    }
    return true;
}

Screen::Screen(WindowManager manager) {
    Require("Xvfb");
    Require("xdotool");
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1400x1000x24"), QStringLiteral("-fbdir"),
                    m_frame.path(), QStringLiteral("-noreset"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp")});
    if (!m_server.waitForReadyRead(kPatience)) {
        throw std::runtime_error("Xvfb does not start: " +
                                 m_server.readAllStandardError().toStdString());
    }
    m_display = QStringLiteral(":") + QString::fromLatin1(m_server.readLine()).trimmed();
    Start(manager);
}

/// It is there once it has said so on the root window.
void Screen::Start(WindowManager manager) {
    if (manager == WindowManager::None) {
        return;
    }
    Require("openbox");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    environment.insert(QStringLiteral("HOME"), m_frame.path());
    m_manager.setProcessEnvironment(environment);
    m_manager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    const bool there = m_manager.waitForStarted(kPatience) &&
                       WaitUntil([&] { return !Tool({QStringLiteral("get_desktop")}).empty(); });
    if (!there) {
        throw std::runtime_error("openbox does not start");
    }
}

Screen::~Screen() {
    m_manager.terminate();
    m_manager.waitForFinished(kPatience);
    m_server.terminate();
    m_server.waitForFinished(kPatience);
}

std::string Screen::Tool(const QStringList& arguments) {
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("xdotool"), arguments);
    tool.waitForFinished(kPatience);
    return tool.readAllStandardOutput().toStdString();
}

bool Screen::Shows(const std::string& title) {
    return !Tool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                  QStringLiteral("--name"), QString::fromStdString(title)})
                .empty();
}

bool Screen::Focus(const std::string& title) {
    if (!WaitUntil([&] { return Shows(title); })) {
        return false;
    }
    Tool({QStringLiteral("windowfocus"), QStringLiteral("--sync"), Window(title)});
    return true;
}

QString Screen::Window(const std::string& title) {
    return FirstOf(Tool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                         QStringLiteral("--name"), QString::fromStdString(title)}));
}

void Screen::Click(const std::string& title) {
    const QString window = Window(title);
    Tool({QStringLiteral("mousemove"), QStringLiteral("--window"), window, QStringLiteral("60"),
          QStringLiteral("60"), QStringLiteral("click"), QStringLiteral("1")});
}

void Screen::Key(const std::string& key) {
    Tool({QStringLiteral("key"), QString::fromStdString(key)});
}

void Screen::Type(const std::string& text) {
    Tool({QStringLiteral("type"), QString::fromStdString(text)});
}

/// The server keeps its picture in a file: a header of big-endian words, colours, and pixels.
QImage Screen::Image() const {
    enum Word { HeaderSize = 0, Width = 4, Height = 5, BytesPerLine = 12, Colours = 19 };
    constexpr qsizetype word_size = 4;
    constexpr qsizetype colour_size = 12;
    QFile file(m_frame.filePath(QStringLiteral("Xvfb_screen0")));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray frame = file.readAll();
    const auto word = [&](Word index) {
        return static_cast<int>(qFromBigEndian<quint32>(frame.constData() + word_size * index));
    };
    const qsizetype start = word(HeaderSize) + colour_size * word(Colours);
    const auto* pixels = reinterpret_cast<const uchar*>(frame.constData()) + start;
    return QImage(pixels, word(Width), word(Height), word(BytesPerLine), QImage::Format_RGB32)
        .copy();
}

}  // namespace quarnel02::test
