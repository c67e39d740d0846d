#include "network/NetworkCommon.h"
#include "petrodb/network/IPipe.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from n_pipes where PipenetName = '%s' and PipeName = '%s'"> kLoadPipe;
constexpr Pattern<"select * from n_pipes where PipenetName = '%s' and PipeName = '%s' and Diameter = %.3f">
    kLoadPipeOfDiameter;
constexpr Pattern<"select * from n_pipes where PipenetName = '%s'"> kLoadPipes;
constexpr Pattern<"select Distinct Diameter from n_pipes where PipenetName = '%s' order by Diameter"> kListDiameters;
constexpr Pattern<"select * from n_pipes where PipenetName = '%s' and PipeType = %d"> kLoadPipesOfType;
constexpr Pattern<"select * from n_pipes where PipenetName ='%s' and PipeName='%s'"> kPipeExists;
constexpr Pattern<"delete from n_pipes where PipenetName = '%s'"> kDeleteNetwork;
constexpr Pattern<"delete from n_pipes where PipenetName = '%s' and PipeName = '%s'"> kDeletePipe;

constexpr const char* kTable = "n_pipes";


const ColumnTable<PipeRecord> kPipeColumns{kTable, {
    Col("PipenetName", &PipeRecord::PipenetName),
    Col("PipeName", &PipeRecord::PipeName),
    Col("Node1", &PipeRecord::Node1),
    Col("Node2", &PipeRecord::Node2),
    TypeColumn("PipeType", &PipeRecord::PipeType, &PipeRecord::TypeName, network::kPipeTypeNames),
    Col("Diameter", &PipeRecord::Diameter),
    Col("Thickness", &PipeRecord::Thickness),
    Col("Length", &PipeRecord::Length),
    Col("InThkness", &PipeRecord::InThkness),
    Col("InCoarseness", &PipeRecord::InCoarseness),
    Col("PNum", &PipeRecord::PNum),
    Col("Medium", &PipeRecord::Medium),
    Col("Material", &PipeRecord::Material),
    Col("Memo", &PipeRecord::Memo),
    Col("AppendID", &PipeRecord::AppendID),
    Col("Status", &PipeRecord::Status),
}};

constexpr Message kEmptyNetwork = ErrorMessage("管网名称不能为空！");
constexpr Message kEmptyPipe = ErrorMessage("管网管子名称不能为空！");
const ReplaceSteps kSave{kTable, Probe::First, ErrorMessage("管网管子数据表为空！"), kSaveFailed};

}  // namespace

class CPipe final : public CDataObject<IPipe> {
 public:
  bool LoadPipe(const char* network, const char* pipe, PipeRecord& record) override {
    return LoadOne(kLoadPipe(network, pipe), kPipeColumns, record);
  }
  bool LoadPipeOfDiameter(const char* network, const char* pipe, double diameter, PipeRecord& record) override {
    return LoadOne(kLoadPipeOfDiameter(network, pipe, diameter), kPipeColumns, record);
  }
  bool LoadPipes(const char* network, std::vector<PipeRecord>& records) override {
    return Records(kLoadPipes(network), records);
  }
  bool ListDiameters(const char* network, std::vector<double>& diameters) override {
    return LoadRows(kListDiameters(network), diameters, Fill::Clear,
                    [](CDbManage& row, double& d) { return row.GetFieldValue("Diameter", d); })
        .found();
  }
  bool LoadPipesOfType(const char* network, int pipeType, std::vector<PipeRecord>& records) override {
    return Records(kLoadPipesOfType(network, pipeType), records);
  }
  bool PipeExists(const char* network, const char* pipe) override { return Exists(kPipeExists(network, pipe)); }

  bool SavePipe(const PipeRecord& record) override {
    if (!KeyGiven(record.PipenetName, kEmptyNetwork) || !KeyGiven(record.PipeName, kEmptyPipe)) return false;
    return Replace(kSave, kDeletePipe(record.PipenetName, record.PipeName),
                   [&](CDbManage& db) { kPipeColumns.AddRow(db, record); });
  }

  bool SavePipes(const char* network, const std::vector<PipeRecord>& records) override {
    if (!KeyGiven(network, kEmptyNetwork)) return false;
    return Append(kTable, [&](CDbManage& db) {
      for (PipeRecord pipe : records) {
        pipe.PipenetName = network;
        kPipeColumns.AddRow(db, pipe);
      }
    });
  }

  bool DeletePipenetPipes(const char* network) override {
    return KeyGiven(network, kEmptyNetwork) && Execute(kDeleteNetwork(network));
  }
  bool DeletePipe(const char* network, const char* pipe) override {
    return KeyGiven(network, kEmptyNetwork) && KeyGiven(pipe, kEmptyPipe) && Execute(kDeletePipe(network, pipe));
  }
  bool DeletePipes(const char* network, const std::vector<std::string>& pipes) override {
    if (!KeyGiven(network, kEmptyNetwork)) return false;
    return ExecuteEach(pipes, [&](const std::string& pipe) { return kDeletePipe(network, pipe); });
  }
  PETRODB_DATA_CLASS

 private:
  bool Records(const Statement& statement, std::vector<PipeRecord>& records) const {
    return LoadAll(statement, kPipeColumns, records, Fill::Clear).found();
  }
};

PETRODB_REGISTER_CLASS(CPipe, IPipe)
