#pragma once
// The pumps installed at injection stations: one table per kind of pump, keyed
// by station and pump code. A kind declares its table once:
//
//   const StationEquipment<StaRodPumpRecord> kRodPumps{
//       .columns = kColumns, .loadStation = ByKey<kLoadStation>, .loadAll = Whole<kLoadAll>,
//       .stationExists = ByKey<kStationExists>, .deletePump = ByPair<kDeletePump>,
//       .deleteStation = ByKey<kDeleteStation>, .otherKindHasCode = ByPair<kOtherKindHasCode>,
//       .tableMissing = ErrorMessage("..."), .saveFailed = ErrorMessage("...")};
//
// and each of its operations is one call of CStationEquipmentObject. A record
// names its station `StaName` and its code `PumpCode`.
#include <string>
#include <vector>

#include "network/Catalogue.h"

namespace petrodb::network {

// A statement maker of a pattern of two values.
template <const auto& P>
Statement ByPair(const char* first, const char* second) {
  return P(first, second);
}

template <class Record>
struct StationEquipment {
  const ColumnTable<Record>& columns;
  Statement (*loadStation)(const char*) = nullptr;  // the station's rows, ordered
  Statement (*loadAll)() = nullptr;
  Statement (*stationExists)(const char*) = nullptr;
  Statement (*deletePump)(const char* station, const char* code) = nullptr;
  Statement (*deleteStation)(const char*) = nullptr;
  // A select answering a row when the other kind's table has the code at the station.
  Statement (*otherKindHasCode)(const char* station, const char* code) = nullptr;
  Message tableMissing{};
  Message saveFailed{};

  ReplaceSteps steps() const { return {columns.table(), Probe::First, tableMissing, saveFailed}; }
};

template <class Interface>
class CStationEquipmentObject : public CDataObject<Interface> {
 protected:
  template <class R>
  bool LoadStation(const StationEquipment<R>& e, const char* station, std::vector<R>& out) const {
    return this->LoadAll(e.loadStation(station), e.columns, out, Fill::Clear).found();
  }
  template <class R>
  bool LoadEvery(const StationEquipment<R>& e, std::vector<R>& out) const {
    return this->LoadAll(e.loadAll(), e.columns, out, Fill::Clear).found();
  }
  template <class R>
  bool StationHasPumps(const StationEquipment<R>& e, const char* station) const {
    return this->Exists(e.stationExists(station));
  }

  // Probes the table, deletes the row of each record's code at the station
  // (what each delete answers is not looked at), then appends the records under
  // `station`. A refused delete ends the save before anything is sent.
  template <class R>
  bool ReplaceStationPumps(const StationEquipment<R>& e, const char* station, const std::vector<R>& pumps) const {
    std::vector<Statement> deletes;
    deletes.reserve(pumps.size());
    for (const R& p : pumps) deletes.push_back(e.deletePump(station, p.PumpCode.c_str()));
    return this->Replace(e.steps(), deletes, [&](CDbManage& db) {
      for (R p : pumps) {
        p.StaName = station ? station : "";
        e.columns.AddRow(db, p);
      }
    });
  }
  template <class R>
  bool AppendPumps(const StationEquipment<R>& e, const std::vector<R>& pumps) const {
    return this->Append(e.columns.table(), [&](CDbManage& db) { e.columns.AddRows(db, pumps); });
  }
  template <class R>
  bool DeleteStation(const StationEquipment<R>& e, const char* station) const {
    return this->Execute(e.deleteStation(station));
  }
  template <class R>
  bool CodeTakenByOtherKind(const StationEquipment<R>& e, const char* station, const char* code) const {
    return this->Exists(e.otherKindHasCode(station, code));
  }
};

}  // namespace petrodb::network
