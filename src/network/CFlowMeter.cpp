#include "network/Catalogue.h"
#include "petrodb/network/IFlowMeter.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_flow_meter where FMModel = '%s'"> kLoadMeter;
constexpr Pattern<"select * from b_flow_meter order by FMModel"> kLoadAllMeters;
constexpr Pattern<"select FMModel from b_flow_meter order by FMModel"> kListModels;
constexpr Pattern<"delete from b_flow_meter where FMModel = '%s'"> kDeleteMeter;
constexpr Pattern<"delete * from b_flow_meter"> kDeleteAllMeters;

const ColumnTable<FlowMeterRecord> kMeterColumns{"b_flow_meter", {
    Col("FMModel", &FlowMeterRecord::FMModel),
    Col("FMP", &FlowMeterRecord::FMP),
    Col("FMF", &FlowMeterRecord::FMF),
    Col("FMT", &FlowMeterRecord::FMT),
    Col("FMV", &FlowMeterRecord::FMV),
    Col("ProdDate", &FlowMeterRecord::ProdDate),
    Col("Mfr", &FlowMeterRecord::Mfr),
    Col("Memo", &FlowMeterRecord::Memo),
}};

const Catalogue<FlowMeterRecord> kMeters{
    .columns = kMeterColumns,
    .key = &FlowMeterRecord::FMModel,
    .loadKey = ByKey<kLoadMeter>,
    .loadAll = Whole<kLoadAllMeters>,
    .listKeys = Whole<kListModels>,
    .deleteKey = ByKey<kDeleteMeter>,
    .deleteAll = Whole<kDeleteAllMeters>,
    .emptyKey = ErrorMessage("流量计型号不能为空！"),
    .tableMissing = ErrorMessage("流量计基本数据表为空！"),
};

}  // namespace

class CFlowMeter final : public CCatalogueObject<IFlowMeter> {
 public:
  bool LoadFlowMeter(const char* model, FlowMeterRecord& record) override { return LoadEntry(kMeters, model, record); }
  bool LoadAllFlowMeters(std::vector<FlowMeterRecord>& records) override { return LoadEntries(kMeters, records); }
  bool ListFlowMeterModels(std::vector<std::string>& models) override { return ListKeys(kMeters, models); }
  bool FlowMeterExists(const char* model) override { return EntryExists(kMeters, model); }
  bool SaveFlowMeter(const FlowMeterRecord& record) override { return SaveEntry(kMeters, record); }
  bool SaveFlowMeters(const std::vector<FlowMeterRecord>& records) override { return SaveEntries(kMeters, records); }
  bool DeleteFlowMeter(const char* model) override { return DeleteEntry(kMeters, model); }
  bool DeleteAllFlowMeters() override { return DeleteEntries(kMeters); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CFlowMeter, IFlowMeter)
