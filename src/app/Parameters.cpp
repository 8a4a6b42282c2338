#include "app/Parameters.h"

#include <array>
#include <string>
#include <utility>

namespace quarnel02 {

namespace {

constexpr std::pair<TextBox, const char*> kPenalty{TextBox::txtPenalty, "Penalty"};

/// The boxes and their fields of Gen.
constexpr std::array kParameters = {std::pair{TextBox::txtResources, "Resources"},
                                    std::pair{TextBox::txtTasks, "Tasks"},
                                    std::pair{TextBox::txtDays, "Days"},
                                    std::pair{TextBox::txtACF, "ACF"},
                                    std::pair{TextBox::txtLaborCost, "LaborCost"},
                                    std::pair{TextBox::txtTransTime, "TransportTime"},
                                    kPenalty,
                                    std::pair{TextBox::txtProduct, "Product"}};

template <class Parameters>
void Save(MainForm& form, const char* sql, const Parameters& parameters) {
    RecordSet gen = form.OpenWorkingCopy().OpenRecordSet(sql);
    gen.Edit();
    for (const auto& [box, field] : parameters) {
        gen.Set(field, form.Text(box));
    }
    gen.Update();
    gen.MoveToLastModified();
    form.Changed = true;
}

}  // namespace

void SaveGeneral(MainForm& form) {
    Save(form, "SELECT * FROM Gen;", kParameters);
}

void SavePenalty(MainForm& form) {
    Save(form, "SELECT Penalty FROM Gen;", std::array{kPenalty});
}

}  // namespace quarnel02
