#include "commands/NetworkUpkeep.h"

#include "fixed/CreateLinks.h"
#include "model/InputDigest.h"

namespace quarnel02 {

NetworkUpkeep::NetworkUpkeep(MainForm& form) : m_form(form), m_inputs(Inputs()) {}

std::uint64_t NetworkUpkeep::Inputs() const {
    return DesignDigest(m_form.OpenWorkingCopy());
}

void NetworkUpkeep::Rebuild() {
    const std::uint64_t inputs = Inputs();
    m_stale = m_stale || inputs != m_inputs;
    m_changed = m_changed || m_stale;
    m_inputs = inputs;
    if (m_stale) {
        CreateLinks(m_form.OpenWorkingCopy(), m_form, m_form.picArc);
        m_stale = false;
    }
}

}  // namespace quarnel02
