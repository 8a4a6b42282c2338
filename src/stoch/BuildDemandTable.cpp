#include "stoch/BuildDemandTable.h"

#include "stoch/DrawDemand.h"
#include "stoch/RunRecords.h"

namespace quarnel02 {

void BuildDemandTable(const DemandDistribution& demand, const RunFiles& files, Picture& picture) {
    files.Write(kProductionTable, ProductionRecords(demand.Production()));
    DrawDemand(demand, picture);
}

}  // namespace quarnel02
