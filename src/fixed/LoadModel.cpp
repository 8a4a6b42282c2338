#include "fixed/LoadModel.h"

#include <array>

#include "fixed/CreateLinks.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

/// Hourglass while it lives.
class BusyPointer {
  public:
    explicit BusyPointer(MainForm& form) : m_form(form) { m_form.SetBusy(true); }
    ~BusyPointer() { m_form.SetBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    BusyPointer(BusyPointer&&) = delete;
    BusyPointer& operator=(BusyPointer&&) = delete;

  private:
    MainForm& m_form;
};

/// The boxes in the order of the columns of Gen.
constexpr std::array kGenBoxes = {
    TextBox::txtResources, TextBox::txtTasks,     TextBox::txtDays,    TextBox::txtACF,
    TextBox::txtLaborCost, TextBox::txtTransTime, TextBox::txtPenalty, TextBox::txtProduct};

}  // namespace

void LoadModel(MainForm& form) {
    const BusyPointer busy(form);
    RecordSet gen = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
    for (std::size_t position = 0; position < kGenBoxes.size(); ++position) {
        form.SetText(kGenBoxes[position], gen.Text(static_cast<int>(position)));
    }
    gen.Close();
    ClearResults(form);
    for (const TextBox box : {TextBox::txtVolume, TextBox::txtProb}) {
        form.SetText(box, "");
    }
    CreateLinks(form);
}

}  // namespace quarnel02
