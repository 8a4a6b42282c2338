#pragma once

#include <string>

#include "basic/Immovable.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// The list of demand rows lstDemand and its sum. Lines are counted from 0.
class DemandList : Immovable {
  public:
    virtual ~DemandList() = default;

    [[nodiscard]] virtual int DemandCount() const = 0;
    /// -1 is none.
    [[nodiscard]] virtual int SelectedDemand() const = 0;
    /// Selects as by a click, which fills txtVolume and txtProb.
    virtual void SelectDemand(int line) = 0;
    [[nodiscard]] virtual std::string DemandLine(int line) const = 0;
    /// Drops the selection too.
    virtual void ClearDemand() = 0;
    virtual void AddDemandLine(const std::string& text) = 0;
    virtual void RemoveDemandLine(int line) = 0;
    /// The label lblSum under the list.
    virtual void ShowDemandSum(const std::string& text, Colour colour) = 0;
};

}  // namespace quarnel02
