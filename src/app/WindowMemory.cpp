#include "app/WindowMemory.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include "app/QtPaths.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

/// Opening a pipe would wait, for ever.
bool IsUsable(const std::filesystem::path& file) {
    try {
        const FileKind kind = KindOfFile(file);
        return kind == FileKind::Ordinary || kind == FileKind::Missing;
    } catch (const RunTimeError&) {
        return false;
    }
}

}  // namespace

WindowMemory::WindowMemory(const std::filesystem::path& applicationDirectory) {
    const std::filesystem::path file = applicationDirectory / "window.ini";
    if (IsUsable(file)) {
        m_file = std::make_unique<QSettings>(ToQString(file), QSettings::IniFormat);
    }
}

WindowMemory::~WindowMemory() = default;

QByteArray WindowMemory::Bytes(const QString& key) const {
    return m_file ? m_file->value(key).toByteArray() : QByteArray();
}

QString WindowMemory::Text(const QString& key) const {
    return QString::fromUtf8(Bytes(key));
}

void WindowMemory::Keep(const QString& key, const QByteArray& value) {
    if (m_file) {
        m_file->setValue(key, value);
    }
}

void WindowMemory::Keep(const QString& key, const QString& value) {
    Keep(key, value.toUtf8());
}

QString LastDirectory(const WindowMemory* memory, const QString& otherwise) {
    QString last = memory == nullptr ? QString() : memory->Text(WindowMemory::kLastDirectory);
    if (!last.isEmpty() && QFileInfo(last).isDir()) {
        return last;
    }
    return otherwise.isEmpty() ? QDir::homePath() : otherwise;
}

}  // namespace quarnel02
