#include "files/ModelSource.h"

#include "basic/RunTimeError.h"
#include "files/AccessFile.h"
#include "files/ForeignFile.h"
#include "files/ModelChecks.h"
#include "jet/Recognise.h"

namespace fs = std::filesystem;

namespace quarnel02 {

std::optional<ModelFormat> FormatOfFile(const fs::path& path) {
    try {
        RequireOrdinaryFile(path, "");
        const std::string head = FileHead(path, "");
        if (jet::IsAccessHead(head)) {
            return ModelFormat::Access;
        }
        return IsSqliteHead(head) ? std::optional(ModelFormat::Sqlite) : std::nullopt;
    } catch (const RunTimeError&) {
        return {};
    }
}

std::unique_ptr<ModelSource> OpenModelSource(const fs::path& path, std::string_view name) {
    RequireOrdinaryFile(path, name);
    if (jet::IsAccessHead(FileHead(path, name))) {
        return std::make_unique<AccessFile>(path, name);
    }
    return std::make_unique<ForeignFile>(path, name);
}

}  // namespace quarnel02
