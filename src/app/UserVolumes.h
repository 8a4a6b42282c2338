#pragma once

#include <QString>
#include <QStringList>

namespace quarnel02 {

/// Of the roots of mounted volumes those that may hold files of users, each once: none of the
/// system's own and none of memory.
QStringList UserVolumes(const QStringList& roots);

/// The root of the volume that holds `path`.
QString VolumeOf(const QString& path);

/// UserVolumes of those mounted now.
QStringList MountedUserVolumes();

}  // namespace quarnel02
