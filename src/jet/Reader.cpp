#include "jet/Reader.h"

#include <algorithm>

#include "basic/Files.h"
#include "basic/Limits.h"
#include "basic/RunTimeError.h"
#include "jet/Catalogue.h"
#include "jet/Header.h"
#include "jet/Names.h"
#include "jet/TableReader.h"

namespace fs = std::filesystem;

namespace quarnel02::jet {

namespace {

bool SameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

FileContent ContentOf(const fs::path& path, std::string_view name) {
    std::error_code no_size;
    if (const auto size = fs::file_size(path, no_size); !no_size && size > limits::kAccessFile) {
        throw RunTimeError(ErrorKind::NotAModel,
                           std::string(name) + " is larger than 128 MB, which no model is.");
    }
    return {ReadFile(path)};
}

void RequireValues(const TableDefinition& table, std::string_view name,
                   std::span<const std::size_t> columns) {
    for (const std::size_t place : columns) {
        const Column& column = table.Columns.at(place).Described;
        const std::string where = "column " + column.Name + " of table " + std::string(name);
        if (column.Type == ColumnType::Computed) {
            throw Refusal("computes " + where + ", where a model holds values. Make it a column " +
                          "of values in Access.");
        }
        if (column.Type == ColumnType::Other) {
            throw Refusal("holds neither numbers nor texts in " + where +
                          ". Change its data type in Access.");
        }
    }
}

}  // namespace

struct Reader::Parts {
    explicit Parts(std::string_view content)
        : Head(ReadHeader(Bytes(content))),
          File(Bytes(content), *Head.Layout),
          Texts(Head.Layout->Wide, Head.CodePage),
          Tables(File, Texts),
          Entries(ReadCatalogue(Tables)) {}

    Header Head;
    Pages File;
    TextDecoder Texts;
    TableReader Tables;
    std::vector<CatalogueEntry> Entries;
};

template <class Action>
decltype(auto) Reader::Guarded(std::string_view table, Action action) const {
    try {
        return action();
    } catch (const Damage&) {
        const std::string where = table.empty() ? "" : " in table " + std::string(table);
        Refuse("is damaged" + where +
               ". Repair it in Access (Compact and Repair Database), or use another copy.");
    } catch (const Refusal& refusal) {
        Refuse(refusal.what());
    }
}

Reader::Reader(const fs::path& path, std::string_view name) : Reader(ContentOf(path, name), name) {}

Reader::Reader(FileContent content, std::string_view name)
    : m_name(name), m_content(std::move(content)) {
    m_parts = Guarded({}, [&] { return std::make_shared<Parts>(m_content.Bytes); });
}

void Reader::Refuse(const std::string& why) const {
    throw RunTimeError(ErrorKind::NotAModel, m_name + " " + why);
}

std::vector<DatabaseObject> Reader::Objects() const {
    std::vector<DatabaseObject> objects;
    for (const CatalogueEntry& entry : m_parts->Entries) {
        objects.push_back(entry.Object);
    }
    return objects;
}

std::size_t Reader::DefinitionPage(std::string_view table) const {
    const auto find = [&](ObjectKind kind) {
        return std::find_if(m_parts->Entries.begin(), m_parts->Entries.end(), [&](auto& entry) {
            return entry.Object.Kind == kind && SameName(entry.Object.Name, table);
        });
    };
    const auto none = m_parts->Entries.end();
    if (const auto entry = find(ObjectKind::Table); entry != none) {
        return entry->DefinitionPage;
    }
    const std::string lacks = "has no table " + std::string(table);
    if (find(ObjectKind::LinkedTable) != none) {
        Refuse(lacks + " of its own: it links to one in another file. Import it in Access.");
    }
    if (find(ObjectKind::Query) != none) {
        Refuse(lacks + ": a query stands in its place. Make it a table in Access.");
    }
    Refuse(lacks + ". Choose a file that holds a model.");
}

std::vector<Column> Reader::Columns(std::string_view table) const {
    const std::size_t page = DefinitionPage(table);
    return Guarded(table, [&] {
        std::vector<Column> columns;
        for (const StoredColumn& column : m_parts->Tables.Definition(page).Columns) {
            columns.push_back(column.Described);
        }
        return columns;
    });
}

void Reader::ReadRows(std::string_view table, std::span<const std::size_t> columns,
                      const std::function<void(const Row&)>& action) {
    const std::size_t page = DefinitionPage(table);
    Guarded(table, [&] {
        const TableDefinition definition = m_parts->Tables.Definition(page);
        RequireValues(definition, table, columns);
        m_parts->Tables.ReadRows(definition, columns, action);
    });
}

}  // namespace quarnel02::jet
