#include "shell/HeadlessForm.h"

#include "shell/Demand.h"

namespace quarnel02 {

std::string HeadlessForm::Text(TextBox box) const {
    return m_texts.at(static_cast<std::size_t>(box));
}

void HeadlessForm::SetText(TextBox box, const std::string& text) {
    m_texts.at(static_cast<std::size_t>(box)) = text;
}

void HeadlessForm::ListDemand() {
    m_demandCount = CountDemandRows(*this);
    m_selectedDemand = -1;
}

void HeadlessForm::SelectDemand(int line) {
    m_selectedDemand = line;
    ShowDemandRow(*this, line);
}

}  // namespace quarnel02
