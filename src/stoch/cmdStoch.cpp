#include "stoch/cmdStoch.h"

namespace quarnel02 {

void cmdStoch_Click(MainForm& form, const RunListener& listener) {
    constexpr int fewest_points = 2;
    for (Picture& picture : form.picGraph) {
        picture.Clear();
    }
    if (form.DemandCount() < fewest_points) {
        form.ShowMessage("You must first enter a probability distribution for demand.",
                         MessageIcon::Information);
        return;
    }
    RunStochastic(form, listener);
    form.Model.Close();
}

}  // namespace quarnel02
