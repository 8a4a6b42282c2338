#pragma once

#include <QDir>
#include <QString>
#include <filesystem>
#include <string>

#include "basic/Files.h"

namespace quarnel02 {

/// A path as the toolkit takes it, and back; native separators.
inline QString ToQString(const std::filesystem::path& path) {
    return QString::fromStdString(PathText(path));
}

inline std::filesystem::path ToPath(const QString& path) {
    return {QDir::toNativeSeparators(path).toStdU16String()};
}

/// A directory or file as the model commands keep it: native separators, UTF-8.
inline std::string NativeText(const QString& path) {
    return QDir::toNativeSeparators(path).toStdString();
}

}  // namespace quarnel02
