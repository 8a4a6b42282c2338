#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

/// How a result stands to the working copy as it now is.
enum class Standing {
    None,       ///< there is no such result
    Current,    ///< it was made from these figures
    OutOfDate,  ///< it was made from others
    Earlier     ///< a report that was there before the program was started
};

/// Tells which results still belong to what is entered: pictures and reports.
class ResultMarks {
  public:
    explicit ResultMarks(MainForm& form) : m_form(form) {}

    /// The design that the form shows wrote this report (a file of the application directory).
    void NoteReport(const std::string& file);

    /// Compares with the working copy anew. Throws what the store reports; what was known stays.
    void Look();

    [[nodiscard]] Standing OfPictures() const;
    [[nodiscard]] Standing OfReport(const std::string& file) const;

  private:
    [[nodiscard]] Standing Of(std::uint64_t inputs) const;

    MainForm& m_form;
    std::map<std::string, std::uint64_t> m_reports;  ///< digest of what each was made from
    std::uint64_t m_inputs = 0;                      ///< DesignDigest of the working copy
};

/// "2 shifts, 60,000 units a year - Pump - 2026-11-21 10:05"; the time is local time.
std::string DesignText(const DesignMade& design);

/// "2 shifts, 60,000 units a year: $202,004 in 6 ms"
std::string ShortDesignText(const DesignMade& design);

}  // namespace quarnel02
