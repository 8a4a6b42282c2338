#include "jet/SystemTables.h"

namespace quarnel02::jet {

namespace {

constexpr unsigned kSystemFixed = 0x13;
constexpr unsigned kSystemVariable = 0x12;
constexpr unsigned kSystemRequired = 0x32;
constexpr unsigned kLongest = 510;

WrittenColumn Fixed(const char* name, TypeCode type, unsigned length) {
    return {name, type, length, kSystemFixed};
}

WrittenColumn Long(const char* name) {
    return Fixed(name, TypeCode::LongInteger, 4);
}

WrittenColumn Date(const char* name) {
    return Fixed(name, TypeCode::DateTime, 8);
}

WrittenColumn Text(const char* name) {
    return {name, TypeCode::Text, kLongest, kSystemVariable};
}

WrittenColumn Binary(const char* name, unsigned flags) {
    return {name, TypeCode::Binary, kLongest, flags};
}

WrittenColumn Memo(const char* name) {
    return {name, TypeCode::Memo, 0, kSystemVariable};
}

WrittenColumn Ole(const char* name) {
    return {name, TypeCode::Ole, 0, kSystemVariable};
}

}  // namespace

std::vector<WrittenColumn> ObjectColumns() {
    return {Long("Id"),
            Long("ParentId"),
            Text("Name"),
            Fixed("Type", TypeCode::Integer, 2),
            Date("DateCreate"),
            Date("DateUpdate"),
            Binary("Owner", kSystemRequired),
            Long("Flags"),
            Memo("Database"),
            Memo("Connect"),
            Text("ForeignName"),
            Binary("RmtInfoShort", kSystemVariable),
            Ole("RmtInfoLong"),
            Ole("Lv"),
            Ole("LvProp"),
            Ole("LvModule"),
            Ole("LvExtra")};
}

std::vector<WrittenColumn> PermissionColumns() {
    return {Long("ObjectId"), Binary("SID", kSystemRequired), Long("ACM"),
            Fixed("FInheritable", TypeCode::YesNo, 1)};
}

std::vector<WrittenColumn> QueryColumns() {
    return {Long("ObjectId"),
            Fixed("Attribute", TypeCode::Byte, 1),
            Binary("Order", kSystemVariable),
            Text("Name1"),
            Text("Name2"),
            Memo("Expression"),
            Fixed("Flag", TypeCode::Integer, 2),
            Long("LvExtra")};
}

std::vector<WrittenColumn> RelationshipColumns() {
    return {Text("szRelationship"),
            Long("grbit"),
            Long("ccolumn"),
            Long("icolumn"),
            Text("szObject"),
            Text("szColumn"),
            Text("szReferencedObject"),
            Text("szReferencedColumn")};
}

}  // namespace quarnel02::jet
