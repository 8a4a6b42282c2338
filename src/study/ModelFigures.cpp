#include "study/ModelFigures.h"

#include <array>
#include <cstddef>
#include <utility>

#include "study/LineText.h"

namespace quarnel02 {

namespace {

constexpr double kPercentOfToday = 100;

struct ParameterField {
    FigureKind Kind;
    const char* Name;
    double Production::*Field;
};
constexpr std::array kParameters = {
    ParameterField{FigureKind::Days, "Working days per year", &Production::Days},
    ParameterField{FigureKind::ACF, "Annual capital factor (ACF)", &Production::ACF},
    ParameterField{FigureKind::LaborCost, "Labour cost", &Production::LaborCost},
    ParameterField{FigureKind::TransportTime, "Transport time", &Production::TransportTime},
    ParameterField{FigureKind::Penalty, "Penalty", &Production::Penalty}};

struct ResourceField {
    FigureKind Kind;
    const char* Name;
    double Resource::*Field;  ///< nullptr for the task times
};
constexpr std::array kResourceFields = {
    ResourceField{FigureKind::FixedCost, "fixed cost", &Resource::FixedCost},
    ResourceField{FigureKind::VarCost, "variable cost", &Resource::VarCost},
    ResourceField{FigureKind::UpTime, "uptime", &Resource::UpTime},
    ResourceField{FigureKind::ICF, "investment factor (ICF)", &Resource::ICF},
    ResourceField{FigureKind::ToolChange, "tool change time", &Resource::ToolChange},
    ResourceField{FigureKind::StatPerWrk, "stations per worker", &Resource::StatPerWrk},
    ResourceField{FigureKind::TaskTimes, "task times", nullptr}};

const ParameterField& ParameterOf(FigureKind kind) {
    return kParameters.at(static_cast<std::size_t>(kind));
}

const ResourceField& ResourceFieldOf(FigureKind kind) {
    return kResourceFields.at(static_cast<std::size_t>(kind) - kParameters.size());
}

/// All rows of the matrix, with the times of one resource scaled.
std::vector<MatrixRow> MatrixOf(const LineModel& model, int scaled, double factor) {
    std::vector<MatrixRow> matrix;
    matrix.reserve(model.Resources().size() * model.Tasks().size());
    for (int resource = 1; resource <= model.ResourceCount(); ++resource) {
        for (int task = 1; task <= model.TaskCount(); ++task) {
            MatrixRow row{resource, task, model.Entry(resource, task)};
            row.Entry.TaskTime *= resource == scaled ? factor : 1;
            matrix.push_back(row);
        }
    }
    return matrix;
}

}  // namespace

std::vector<ModelFigure> FiguresOf(const LineModel& model) {
    std::vector<ModelFigure> figures = ExpectedFiguresOf(model);
    std::erase(figures, ModelFigure{FigureKind::Penalty, 0});
    return figures;
}

std::vector<ModelFigure> ExpectedFiguresOf(const LineModel& model) {
    std::vector<ModelFigure> figures;
    figures.reserve(kParameters.size() + model.Resources().size() * kResourceFields.size());
    for (const ParameterField& field : kParameters) {
        figures.push_back({field.Kind, 0});
    }
    for (const Resource& resource : model.Resources()) {
        for (const ResourceField& field : kResourceFields) {
            figures.push_back({field.Kind, resource.Number});
        }
    }
    return figures;
}

std::string FigureName(const LineModel& model, const ModelFigure& figure) {
    if (figure.Resource == 0) {
        return ParameterOf(figure.Kind).Name;
    }
    return NameText(model.ResourceOf(figure.Resource)) + ": " + ResourceFieldOf(figure.Kind).Name;
}

double ValueOf(const LineModel& model, const ModelFigure& figure) {
    if (figure.Resource == 0) {
        return model.Parameters().*ParameterOf(figure.Kind).Field;
    }
    const auto field = ResourceFieldOf(figure.Kind).Field;
    return field == nullptr ? kPercentOfToday : model.ResourceOf(figure.Resource).*field;
}

LineModel WithValue(const LineModel& model, const ModelFigure& figure, double value) {
    Production production = model.Parameters();
    std::vector<Resource> resources(model.Resources().begin(), model.Resources().end());
    double factor = 1;
    if (figure.Resource == 0) {
        production.*ParameterOf(figure.Kind).Field = value;
    } else if (const auto field = ResourceFieldOf(figure.Kind).Field; field != nullptr) {
        resources[static_cast<std::size_t>(figure.Resource) - 1].*field = value;
    } else {
        factor = value / kPercentOfToday;
    }
    return {std::move(production),
            std::move(resources),
            {model.Tasks().begin(), model.Tasks().end()},
            MatrixOf(model, figure.Resource, factor),
            {model.Demand().begin(), model.Demand().end()}};
}

}  // namespace quarnel02
