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

std::vector<std::string> StoredModel::Broken() const {
    std::vector<std::string> broken;
    const auto sound = Rows("PRAGMA integrity_check");
    if (sound != std::vector<std::string>{"ok"}) {
        broken.push_back("damaged: " + sound.at(0));
    }
    LookAtCounts(broken);
    LookAtArcs(broken);
    LookAtChosen(broken);
    return broken;
}

void StoredModel::LookAtCounts(std::vector<std::string>& broken) const {
    for (const std::string table : {"Tasks", "Resources"}) {
        const auto both =
            Rows("SELECT " + table + ", (SELECT count(*) FROM " + table + ") FROM Gen");
        if (both.size() != 1 ||
            both[0].substr(0, both[0].find('|')) != both[0].substr(both[0].find('|') + 1)) {
            broken.push_back("Gen counts " + table + ", counted: " + both.at(0));
        }
    }
}

/// One for every run of consecutive tasks, once.
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
}

/// Pathways that are marked as chosen form one line from the first task on.
void StoredModel::LookAtChosen(std::vector<std::string>& broken) const {
    int node = 1;
    for (const std::string& row :
         Rows("SELECT TaskStart, TaskEnd FROM Pathways JOIN Arcs USING (ArcId) "
              "WHERE Feasible = 4 ORDER BY TaskStart, TaskEnd")) {
        if (std::stoi(row) != node) {
            broken.push_back("the chosen pathways are no line: at node " + std::to_string(node) +
                             " goes on with " + row);
            return;
        }
        node = std::stoi(row.substr(row.find('|') + 1));
    }
}

}  // namespace quarnel02::test
