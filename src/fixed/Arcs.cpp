#include "fixed/Arcs.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

/// One number for a pair of nodes, each of 16 bits.
int PairOf(int start, int end) {
    constexpr int nodes = 1 << 15;
    return start * nodes + end;
}

}  // namespace

Arcs::Arcs(const Database& database) {
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Arcs;");
    for (; !rows.Eof(); rows.MoveNext()) {
        const Arc arc{rows.Integer(0), rows.Integer(1), rows.Integer(2), rows.Number(3),
                      rows.Number(4),  rows.Number(5),  rows.Number(6)};
        m_byId.emplace(arc.Id, m_arcs.size());
        m_byNodes.emplace(PairOf(arc.TaskStart, arc.TaskEnd), m_arcs.size());
        m_arcs.push_back(arc);
    }
}

const Arc& Arcs::WithId(int arc) const {
    const auto place = m_byId.find(arc);
    if (place == m_byId.end()) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "The network has no arc " + NumberText(arc) + ". Open the model again.");
    }
    return m_arcs[place->second];
}

const Arc* Arcs::Between(int start, int end) const {
    const auto place = m_byNodes.find(PairOf(start, end));
    return place == m_byNodes.end() ? nullptr : &m_arcs[place->second];
}

}  // namespace quarnel02
