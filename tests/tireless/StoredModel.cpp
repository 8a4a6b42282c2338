#include "tireless/StoredModel.h"

#include <sqlite3.h>

#include <stdexcept>

namespace quarnel02::test {

StoredModel::StoredModel(const std::filesystem::path& file) {
    if (sqlite3_open_v2(file.c_str(), &m_file, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        const std::string why = sqlite3_errmsg(m_file);
        sqlite3_close(m_file);
        throw std::runtime_error(file.string() + ": " + why);
    }
}

StoredModel::~StoredModel() {
    sqlite3_close(m_file);
}

/// Fields joined by "|".
std::vector<std::string> StoredModel::Rows(const std::string& sql) const {
    std::vector<std::string> rows;
    const auto keep = [](void* all, int fields, char** texts, char** /*names*/) {
        std::string row;
        for (int i = 0; i < fields; ++i) {
            row += (i > 0 ? "|" : "") + std::string(texts[i] == nullptr ? "Null" : texts[i]);
        }
        static_cast<std::vector<std::string>*>(all)->push_back(row);
        return 0;
    };
    if (sqlite3_exec(m_file, sql.c_str(), keep, &rows, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(m_file));
    }
    return rows;
}

int StoredModel::Number(const std::string& sql) const {
    return std::stoi(Rows(sql).at(0));
}

std::string StoredModel::Inputs() const {
    std::string all;
    for (const char* table : {"Gen", "Tasks", "Resources", "Matrix", "Demand", "Scenarios"}) {
        all += std::string("[") + table + "]\n";
        for (const std::string& row : Rows(std::string("SELECT * FROM ") + table)) {
            all += row + "\n";
        }
    }
    return all;
}

bool StoredModel::HasChosenLine() const {
    return Number("SELECT count(*) FROM Pathways WHERE Feasible = 4") > 0;
}

/// "ok" for a file without damage. Where the check itself cannot go on, the damage is its answer.
std::string StoredModel::Soundness() const {
    try {
        return Rows("PRAGMA integrity_check").at(0);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

/// What lies in a damaged file, or in one without the row of Gen, is not worth a look.
std::vector<std::string> StoredModel::Broken() const {
    const std::string sound = Soundness();
    if (sound != "ok") {
        return {"damaged: " + sound};
    }
    const int rows = Number("SELECT count(*) FROM Gen");
    if (rows != 1) {
        return {"Gen has " + std::to_string(rows) + " rows"};
    }
    std::vector<std::string> broken;
    LookAtCounts(broken);
    LookAtArcs(broken);
    LookAtChosen(broken);
    return broken;
}

void StoredModel::LookAtCounts(std::vector<std::string>& broken) const {
    for (const std::string table : {"Tasks", "Resources"}) {
        const int said = Number("SELECT " + table + " FROM Gen");
        const int counted = Number("SELECT count(*) FROM " + table);
        if (said != counted) {
            broken.push_back("Gen says " + std::to_string(said) + " " + table + ", there are " +
                             std::to_string(counted));
        }
    }
}

/// One for every run of consecutive tasks, once, each with a number of its own.
void StoredModel::LookAtArcs(std::vector<std::string>& broken) const {
    const int tasks = Number("SELECT Tasks FROM Gen");
    const int arcs = Number("SELECT count(*) FROM Arcs");
    const int sound = Number(
        "SELECT count(*) FROM (SELECT DISTINCT TaskStart, TaskEnd FROM Arcs "
        "WHERE 1 <= TaskStart AND TaskStart < TaskEnd AND TaskEnd <= " +
        std::to_string(tasks + 1) + ")");
    if (arcs != tasks * (tasks + 1) / 2 || sound != arcs) {
        broken.push_back(std::to_string(arcs) + " arcs, " + std::to_string(sound) +
                         " of them sound, for " + std::to_string(tasks) + " tasks");
    }
    const int numbers = Number("SELECT count(DISTINCT ArcId) FROM Arcs");
    if (numbers != arcs) {
        broken.push_back(std::to_string(arcs) + " arcs have " + std::to_string(numbers) +
                         " numbers");
    }
    const int loose = Number(
        "SELECT count(*) FROM Pathways WHERE ArcId NOT IN "
        "(SELECT ArcId FROM Arcs)");
    if (loose != 0) {
        broken.push_back(std::to_string(loose) + " pathways are on no arc");
    }
}

/// Pathways that are marked as chosen form one line: each begins where the one before ends, the
/// first at the first task, or, where the search found its way back cut off, at a node that no
/// pathway reaches; the last one ends at the last node that any pathway within the limit reaches.
void StoredModel::LookAtChosen(std::vector<std::string>& broken) const {
    const std::string on_arcs = " FROM Pathways JOIN Arcs USING (ArcId) WHERE Feasible ";
    int node = 0;
    for (const std::string& row :
         Rows("SELECT TaskStart, TaskEnd" + on_arcs + "= 4 ORDER BY TaskStart, TaskEnd")) {
        const int start = std::stoi(row);
        if (node != 0 && start != node) {
            broken.push_back("the chosen pathways are no line: at node " + std::to_string(node) +
                             " goes on with " + row);
            return;
        }
        if (node == 0 && start != 1 &&
            Number("SELECT count(*)" + on_arcs +
                   "IN (1, 3, 4) AND TaskEnd = " + std::to_string(start)) > 0) {
            broken.push_back("the chosen line begins with " + row + ", where others end");
        }
        node = std::stoi(row.substr(row.find('|') + 1));
    }
    if (node != 0 && node != Number("SELECT max(TaskEnd)" + on_arcs + "IN (1, 3, 4)")) {
        broken.push_back("the chosen line ends at node " + std::to_string(node) +
                         ", and pathways reach further");
    }
}

}  // namespace quarnel02::test
