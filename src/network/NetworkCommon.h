#pragma once
// What the network and equipment classes share beyond the verbs of CDataObject:
// the refusal of an empty key, a type number column that also fills its type
// name, and reading only the columns a statement selects.
#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "dbaccess/DataObject.h"

namespace petrodb::network {

inline constexpr Message kSaveFailed = ErrorMessage("保存数据库出错！");

// The names of the node and pipe type numbers, given beside the number by node
// and pipe loads and by the case loads joined to them.
inline constexpr std::array<const char*, 12> kNodeTypeNames{"注水站", "配水间", "注水井", "管汇点", "水罐",   "注水泵",
                                                            "阀门",   "流量计", "压力表", "虚拟井", "弯头", "大小头"};
inline constexpr std::array<const char*, 4> kPipeTypeNames{"出站干线", "注水干线", "支线", "连络线"};

// A type number column whose reading also sets the type name: names[type], or
// "" for a number outside the table. The name is not a column and is not written.
template <class Record, std::size_t N>
Column<Record> TypeColumn(const char* name, int Record::*type, std::string Record::*typeName,
                          const std::array<const char*, N>& names) {
  Column<Record> c = Col(name, type);
  c.get = [name, type, typeName, &names](const CDbManage& db, Record& r) {
    if (!columns::ReadValue(db, name, r.*type)) return false;
    const int t = r.*type;
    r.*typeName = t >= 0 && static_cast<std::size_t>(t) < N ? names[static_cast<std::size_t>(t)] : "";
    return true;
  };
  return c;
}

// A row reader for LoadRows / LoadOne-like reads of statements that select only
// some columns: the named columns of the table, in the table's order, the first
// that cannot be read ending the read. The others are left as they are.
template <class Record>
auto Selected(const ColumnTable<Record>& table, std::initializer_list<std::string_view> names) {
  std::vector<const Column<Record>*> chosen;
  for (const auto& c : table.columns())
    for (auto n : names)
      if (n == c.name) chosen.push_back(&c);
  return [chosen](const CDbManage& db, Record& record) {
    for (const auto* c : chosen)
      if (!c->get(db, record)) return false;
    return true;
  };
}

}  // namespace petrodb::network
