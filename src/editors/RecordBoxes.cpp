#include "editors/RecordBoxes.h"

#include <algorithm>
#include <utility>

#include "basic/OneLine.h"
#include "commands/EnteredValue.h"

namespace quarnel02 {

RecordBoxes::RecordBoxes(const char* table, std::vector<Field> fields, QWidget* last,
                         QObject* parent)
    : QObject(parent), m_table(table), m_fields(std::move(fields)), m_stored(m_fields.size()) {
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        QWidget* next = i + 1 < m_fields.size() ? m_fields[i + 1].Box : last;
        connect(m_fields[i].Box, &FieldBox::Entered, next,
                [next] { next->setFocus(Qt::TabFocusReason); });
        connect(m_fields[i].Box, &QLineEdit::textChanged, this, [this, i] {
            Mark(i);
            emit Changed();
        });
    }
}

void RecordBoxes::Mark(std::size_t field) {
    FieldBox& box = *m_fields[field].Box;
    box.SetUnsaved(box.text() != m_stored[field]);
}

void RecordBoxes::Show(const std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        m_stored[i] = QString::fromStdString(OneLine(texts.at(i)));
        m_fields[i].Box->setText(m_stored[i]);
        m_fields[i].Box->setCursorPosition(0);
        Mark(i);
    }
    emit Changed();
}

void RecordBoxes::ShowBehind(const std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        m_stored[i] = QString::fromStdString(OneLine(texts.at(i)));
        if (!m_fields[i].Box->IsUnsaved()) {
            m_fields[i].Box->setText(m_stored[i]);
        }
        Mark(i);
    }
    emit Changed();
}

bool RecordBoxes::Has(const FieldBox* box) const {
    return std::any_of(m_fields.begin(), m_fields.end(),
                       [&](const Field& field) { return field.Box == box; });
}

void RecordBoxes::Enable(bool enabled) {
    for (const Field& field : m_fields) {
        field.Box->setEnabled(enabled);
    }
    if (!enabled) {
        Show(std::vector<std::string>(m_fields.size()));
    }
}

bool RecordBoxes::AnyUnsaved() const {
    return std::any_of(m_fields.begin(), m_fields.end(),
                       [](const Field& field) { return field.Box->IsUnsaved(); });
}

bool RecordBoxes::AnyEmpty() const {
    return std::any_of(m_fields.begin(), m_fields.end(),
                       [](const Field& field) { return field.Box->text().isEmpty(); });
}

std::vector<FieldValue> RecordBoxes::Values() {
    std::vector<FieldValue> values;
    for (const Field& field : m_fields) {
        m_refused = field.Box;
        values.push_back(
            {field.Column, EnteredValue(m_table, field.Column, field.Box->text().toStdString(),
                                        field.Box->accessibleName().toStdString())});
    }
    m_refused = nullptr;
    return values;
}

void RecordBoxes::FocusRefused() {
    if (m_refused != nullptr) {
        m_refused->setFocus(Qt::OtherFocusReason);
        m_refused->selectAll();
    }
}

}  // namespace quarnel02
