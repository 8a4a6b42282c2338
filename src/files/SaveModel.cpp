#include "files/SaveModel.h"

#include <algorithm>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "files/AccessContent.h"
#include "files/ModelChecks.h"
#include "files/ModelImage.h"
#include "files/ModelSource.h"
#include "jet/Recognise.h"
#include "model/Connection.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// A checked copy of the working copy.
ModelImage ImageOf(const fs::path& workingCopy) {
    const std::string name = PathText(workingCopy);
    RequireOrdinaryFile(workingCopy, name);
    return Translating(name, [&] { return ModelImage(workingCopy, name); });
}

std::string ListOf(const std::vector<std::string>& names) {
    constexpr std::size_t shown = 8;
    std::string text;
    for (std::size_t i = 0; i < std::min(shown, names.size()); ++i) {
        text += (i == 0 ? "" : ", ") + names[i];
    }
    return names.size() <= shown ? text
                                 : text + " and " + std::to_string(names.size() - shown) + " more";
}

std::optional<Obstacle> ObstacleOfMore(const fs::path& target, bool isAccess) {
    const std::vector<std::string> foreign = ForeignObjects(target);
    if (foreign.empty()) {
        return {};
    }
    const std::string more = "holds more than a model: " + ListOf(foreign) + ".";
    return isAccess ? Obstacle{more + " Such a file is never replaced.", true}
                    : Obstacle{more + " Saving removes it.", false};
}

std::optional<Obstacle> ObstacleOfGeneration(const fs::path& target, ModelFormat format) {
    switch (jet::GenerationOf(FileHead(target, PathText(target)))) {
        case jet::Generation::Access2007:
            return Obstacle{"is a database of Access 2007 or later, which is read but not written.",
                            true};
        case jet::Generation::Access97:
            if (format == ModelFormat::Access) {
                return Obstacle{
                    "is a database of Access 97. Saving makes it one of Access 2000, which Access "
                    "97 does not open.",
                    false};
            }
            break;
        case jet::Generation::Access2000:
            break;
    }
    return {};
}

void RequireReplaceable(const fs::path& target, ModelFormat format) {
    const auto obstacle = ObstacleTo(target, format);
    if (obstacle && obstacle->IsFinal) {
        throw RunTimeError(ErrorKind::FileAccess, PathText(target) + " " + obstacle->Why +
                                                      " Save the model as another file.");
    }
}

}  // namespace

void SaveModel(const fs::path& workingCopy, const fs::path& target, ModelFormat format) {
    if (FormatOfFile(target) == ModelFormat::Access) {
        RequireReplaceable(target, format);
    }
    ModelImage image = ImageOf(workingCopy);
    const std::string name = PathText(workingCopy);
    if (format == ModelFormat::Access) {
        WriteWhole(target, AccessContent(image, name));
    } else {
        WriteWhole(target, image.Content(name));
    }
}

void KeepModel(const fs::path& workingCopy, const fs::path& target) {
    WritePrivate(target, ImageOf(workingCopy).Content(PathText(workingCopy)));
}

std::optional<Obstacle> ObstacleTo(const fs::path& target, ModelFormat format) {
    const bool is_access = FormatOfFile(target) == ModelFormat::Access;
    const auto more = ObstacleOfMore(target, is_access);
    return more || !is_access ? more : ObstacleOfGeneration(target, format);
}

std::vector<std::string> ForeignObjects(const fs::path& target) {
    if (KindOfFile(target) != FileKind::Ordinary) {
        return {};
    }
    try {
        return OpenModelSource(target, PathText(target))->ObjectsBeyondModel();
    } catch (const RunTimeError& error) {
        if (error.Kind() == ErrorKind::DatabaseLocked ||
            FormatOfFile(target) == ModelFormat::Access) {
            throw;
        }
        return {};
    }
}

}  // namespace quarnel02
