#include "batch/OpenedModel.h"

#include "basic/Files.h"
#include "commands/LoadModel.h"
#include "files/ReadModel.h"
#include "shell/Demand.h"

namespace quarnel02 {

OpenedModel::OpenedModel(const std::filesystem::path& model, bool progress)
    : m_form(m_application.Path(), progress),
      m_format(ReadModel(model, m_form.Copy().Path(), PathText(model))) {
    LoadModel(m_form);
    ListDemand(m_form.Copy(), m_form);
}

}  // namespace quarnel02
