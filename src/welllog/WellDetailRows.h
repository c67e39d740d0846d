#pragma once
// The per-well detail layout: a table of rows that belong to one well each
// (cores, sidewall cores, interpreted layers, ...), handled well by well.
// A class configures it with its table, its statements, the column table of
// one row and, where it has one, a step that prepares the rows before a save;
// the operations below are then the same for every such class:
//   list the project's wells that have rows, load one well (its rows cleared
//   first), load every well of a project, find which listed wells have rows,
//   replace one well's rows, replace several wells' rows, delete one well's,
//   several wells' or a project's rows, and test whether a well has rows.
// Rows are written with the well's "WellID" first, then the row's columns.
#include <string>
#include <vector>

#include "dbaccess/DataObject.h"
#include "welllog/WellLogCommon.h"

namespace petrodb::welllog {

template <class Well, class Row>
struct WellDetailLayout {
  const char* table;
  std::vector<Row> Well::*rows;  // where a well record keeps its rows
  const ColumnTable<Row>* columns;
  // Run on a copy of a well's rows before they are written (null: none).
  void (*prepare)(std::vector<Row>& rows) = nullptr;
};

// `S` holds the class's statements as patterns: wellsOfProject (project),
// loadWell (well), wellsWithRows (quoted list), deleteWell (well), deleteWells
// (quoted list), deleteProject (project), wellHasRows (well).
template <class Interface, class S, class Well, class Row, const WellDetailLayout<Well, Row>& L>
class CWellDetailData : public CDataObject<Interface> {
 public:
  bool GetCoredWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override {
    return this->ListColumn(S::wellsOfProject(projectName), "WellID", wellIDs, Fill::Clear).found();
  }

  // The record takes the well ID as given; its rows are replaced by the loaded ones.
  bool LoadWellCores(const char* wellID, Well& well) override {
    well.WellID = wellID;
    return this->LoadAll(S::loadWell(wellID), *L.columns, well.*L.rows, Fill::Clear).found();
  }

  // One entry per well the project lists, each loaded through this object.
  bool LoadProjectCores(const char* projectName, std::vector<Well>& wells) override {
    wells.clear();
    std::vector<std::string> ids;
    if (!this->GetCoredWellIDs(projectName, ids)) return false;
    for (const auto& id : ids) {
      Well well;
      this->LoadWellCores(id.c_str(), well);
      wells.push_back(std::move(well));
    }
    return true;
  }

  bool GetWellsWithCores(const std::vector<std::string>& wellIDs, std::vector<std::string>& found) override {
    return this->ListColumn(S::wellsWithRows(sql::QuoteEach(wellIDs)), "WellID", found, Fill::Clear).found();
  }

  bool SaveWellCores(const Well& well) override {
    if (!KeyGiven(well.WellID, kEmptyWell)) return false;
    const Statement remove = S::deleteWell(well.WellID);
    return this->Replace(ReplaceSteps{L.table}, remove, [&](CDbManage& db) { AddWellRows(db, well); });
  }

  // Every listed well's rows go through DeleteCoresOfWells, whatever it
  // answers; then, when the table answers, all records are written at once.
  bool SaveCoresOfWells(int, const std::vector<Well>& wells) override {
    std::vector<std::string> ids;
    for (const auto& w : wells) ids.push_back(w.WellID);
    if (S::deleteWells(sql::QuoteEach(ids)).refused()) return false;
    return this->ReplaceAfter(ReplaceSteps{L.table, Probe::AfterDelete},
                              Regardless([&] { this->DeleteCoresOfWells(ids); }), [&](CDbManage& db) {
                                for (const auto& w : wells) AddWellRows(db, w);
                              });
  }

  bool DeleteWellCores(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && this->ExecuteOnTable(L.table, S::deleteWell(wellID));
  }

  bool DeleteCoresOfWells(const std::vector<std::string>& wellIDs) override {
    return this->ExecuteOnTable(L.table, S::deleteWells(sql::QuoteEach(wellIDs)));
  }

  bool DeleteProjectCores(const char* projectName) override {
    return this->ExecuteOnTable(L.table, S::deleteProject(projectName));
  }

  bool IsWellCoresExist(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && this->Exists(S::wellHasRows(wellID));
  }

 private:
  static void AddWellRows(CDbManage& db, const Well& well) {
    const std::vector<Row>* rows = &(well.*L.rows);
    std::vector<Row> prepared;
    if (L.prepare) {
      prepared = *rows;
      L.prepare(prepared);
      rows = &prepared;
    }
    for (const auto& row : *rows) L.columns->AddKeyedRow(db, "WellID", well.WellID, row);
  }
};

}  // namespace petrodb::welllog
