#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QString>
#include <filesystem>
#include <memory>

#include "basic/Immovable.h"

class QSettings;

namespace quarnel02 {

/// What windows remember from one start to the next: sizes, and the directory that a dialog was in
/// last. Kept in "window.ini" of the application directory, written when this ends or soon before.
/// A file that is damaged, or cannot be read or written, is as good as none: nothing but
/// convenience is in it.
class WindowMemory : Immovable {
  public:
    /// Key of the directory that a dialog for files other than models was in last.
    static constexpr QLatin1String kLastDirectory{"Sheets/directory"};

    explicit WindowMemory(const std::filesystem::path& applicationDirectory);
    ~WindowMemory();

    /// Empty when nothing was kept.
    [[nodiscard]] QByteArray Bytes(const QString& key) const;
    [[nodiscard]] QString Text(const QString& key) const;

    void Keep(const QString& key, const QByteArray& value);
    void Keep(const QString& key, const QString& value);

  private:
    std::unique_ptr<QSettings> m_file;  ///< none where the file is of no use
};

/// The directory of kLastDirectory as long as it is one, else `otherwise`, else home. A null
/// memory remembers nothing.
QString LastDirectory(const WindowMemory* memory, const QString& otherwise = {});

}  // namespace quarnel02
