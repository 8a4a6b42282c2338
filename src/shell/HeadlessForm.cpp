#include "shell/HeadlessForm.h"

#include "shell/Demand.h"

namespace quarnel02 {

std::string HeadlessForm::Text(TextBox box) const {
    return m_texts.at(static_cast<std::size_t>(box));
}

void HeadlessForm::SetText(TextBox box, const std::string& text) {
    m_texts.at(static_cast<std::size_t>(box)) = text;
}

void HeadlessForm::SelectDemand(int line) {
    m_selectedDemand = line;
    ShowDemandRow(OpenWorkingCopy(), line, *this);
}

std::string HeadlessForm::DemandLine(int line) const {
    return m_demandLines.at(static_cast<std::size_t>(line));
}

void HeadlessForm::ClearDemand() {
    m_demandLines.clear();
    m_selectedDemand = -1;
}

void HeadlessForm::AddDemandLine(const std::string& text) {
    m_demandLines.push_back(text);
}

void HeadlessForm::RemoveDemandLine(int line) {
    m_demandLines.erase(m_demandLines.begin() + line);
    if (m_selectedDemand == line) {
        m_selectedDemand = -1;
    } else if (m_selectedDemand > line) {
        --m_selectedDemand;
    }
}

}  // namespace quarnel02
