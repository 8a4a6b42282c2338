#include "app/UserVolumes.h"

#include <QFileInfo>
#include <QStorageInfo>
#include <algorithm>
#include <array>

namespace quarnel02 {

namespace {

/// Whether `path` is `directory` or stands below it.
bool IsIn(const QString& path, const QString& directory) {
    return path == directory || path.startsWith(directory + QLatin1Char('/'));
}

/// Desktops mount a user's stick below /run/media.
bool BelongsToSystem(const QString& root) {
    const std::array system = {QStringLiteral("/proc"), QStringLiteral("/sys"),
                               QStringLiteral("/dev"),  QStringLiteral("/run"),
                               QStringLiteral("/snap"), QStringLiteral("/boot")};
    return !IsIn(root, QStringLiteral("/run/media")) &&
           std::any_of(system.begin(), system.end(),
                       [&](const QString& directory) { return IsIn(root, directory); });
}

}  // namespace

QStringList UserVolumes(const QStringList& roots) {
    QStringList volumes;
    for (const QString& root : roots) {
        if (!BelongsToSystem(root) && !volumes.contains(root)) {
            volumes.append(root);
        }
    }
    return volumes;
}

QString VolumeOf(const QString& path) {
    return QStorageInfo(path).rootPath();
}

QStringList MountedUserVolumes() {
    QStringList roots;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (volume.isValid() && QFileInfo(volume.rootPath()).isDir()) {
            roots.append(volume.rootPath());
        }
    }
    return UserVolumes(roots);
}

}  // namespace quarnel02
