#include "model/ScenariosTable.h"

namespace quarnel02 {

bool HasScenarios(const Database& database) {
    return database
               .OpenRecordSet(
                   "SELECT name FROM sqlite_master WHERE type = 'table' AND name = 'Scenarios' "
                   "COLLATE NOCASE;")
               .RecordCount() > 0;
}

}  // namespace quarnel02
