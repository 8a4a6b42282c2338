#include "commands/ResultMarks.h"

#include <algorithm>

#include "basic/NumberFormat.h"
#include "model/InputDigest.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

/// "6 ms", "1.2 s", "75 s"; at least a millisecond.
std::string DurationText(std::chrono::system_clock::duration duration) {
    constexpr double whole_seconds_from = 10;
    const auto least = std::chrono::milliseconds(1);
    const auto milliseconds =
        std::max(least, std::chrono::duration_cast<std::chrono::milliseconds>(duration));
    if (milliseconds < std::chrono::seconds(1)) {
        return std::to_string(milliseconds.count()) + " ms";
    }
    const double seconds = std::chrono::duration<double>(milliseconds).count();
    return Format(seconds, seconds < whole_seconds_from ? "0.0" : "0") + " s";
}

}  // namespace

void ResultMarks::NoteReport(const std::string& file) {
    if (m_form.LastDesign) {
        m_reports[file] = m_form.LastDesign->Inputs;
    }
}

void ResultMarks::Look() {
    if (m_form.LastDesign || !m_reports.empty()) {
        m_inputs = DesignDigest(m_form.OpenWorkingCopy());
    }
}

Standing ResultMarks::Of(std::uint64_t inputs) const {
    return inputs == m_inputs ? Standing::Current : Standing::OutOfDate;
}

Standing ResultMarks::OfPictures() const {
    return m_form.LastDesign ? Of(m_form.LastDesign->Inputs) : Standing::None;
}

Standing ResultMarks::OfReport(const std::string& file) const {
    if (!HasReport(m_form.Copy(), file)) {
        return Standing::None;
    }
    const auto known = m_reports.find(file);
    return known == m_reports.end() ? Standing::Earlier : Of(known->second);
}

std::string DesignText(const DesignMade& design) {
    const std::string product = design.Product.empty() ? "" : " - " + design.Product;
    return design.Caption + product + " - " + TimeText(design.When);
}

std::string ShortDesignText(const DesignMade& design) {
    if (design.Cost.empty()) {
        return design.Caption;
    }
    return design.Caption + ": " + design.Cost + " in " + DurationText(design.Took);
}

}  // namespace quarnel02
