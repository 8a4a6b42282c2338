#include "line/Pathways.h"

#include <utility>

#include "basic/Limits.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

void RequireRoom(std::size_t count) {
    if (count == limits::kPathways) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Pathways: the model has more than 32,767 pathways (a task range and a "
                           "resource that can do it). Remove tasks, resources or matrix rows.");
    }
}

/// Appends the pathways of a resource that begin with a task.
void AppendChain(std::vector<Pathway>& pathways, const LineModel& model, int resource, int first) {
    for (int last = first; last <= model.TaskCount() && model.CanDo(resource, last); ++last) {
        RequireRoom(pathways.size());
        pathways.push_back({static_cast<std::int16_t>(resource), static_cast<std::int16_t>(first),
                            static_cast<std::int16_t>(last)});
    }
}

/// Whether a pathway is the one before it, of the same resource, and one task more.
bool Lengthens(const Pathway& pathway, const Pathway& previous) {
    return pathway.FirstTask == previous.FirstTask && pathway.LastTask == previous.LastTask + 1;
}

void Begin(StationContent& content, const LineModel& model, const Pathway& pathway) {
    content.Clear();
    for (const MatrixEntry& entry :
         model.Entries(pathway.Resource, pathway.FirstTask, pathway.LastTask)) {
        content.Add(entry);
    }
}

/// Appends the contents of the pathways of one resource, which begin at `place`; returns the place
/// behind them.
std::size_t AppendContents(std::vector<WorkContent>& contents, const LineModel& model,
                           std::span<const Pathway> pathways, std::size_t place) {
    const int resource = pathways[place].Resource;
    StationContent content(model.ResourceOf(resource), model.Parameters().TransportTime);
    Pathway previous;
    for (; place < pathways.size() && pathways[place].Resource == resource; ++place) {
        const Pathway& pathway = pathways[place];
        if (Lengthens(pathway, previous)) {
            content.Add(model.Entry(resource, pathway.LastTask));
        } else {
            Begin(content, model, pathway);
        }
        contents.push_back(content.Content());
        previous = pathway;
    }
    return place;
}

}  // namespace

std::vector<Pathway> PathwaysOf(const LineModel& model) {
    std::vector<Pathway> pathways;
    for (int resource = 1; resource <= model.ResourceCount(); ++resource) {
        for (int first = 1; first <= model.TaskCount(); ++first) {
            AppendChain(pathways, model, resource, first);
        }
    }
    return pathways;
}

std::vector<WorkContent> ContentsOf(const LineModel& model, std::span<const Pathway> pathways) {
    std::vector<WorkContent> contents;
    contents.reserve(pathways.size());
    for (std::size_t place = 0; place < pathways.size();) {
        place = AppendContents(contents, model, pathways, place);
    }
    return contents;
}

PreparedLine Prepare(LineModel model) {
    std::vector<Pathway> pathways = PathwaysOf(model);
    std::vector<WorkContent> contents = ContentsOf(model, pathways);
    return {std::move(model), std::move(pathways), std::move(contents)};
}

}  // namespace quarnel02
