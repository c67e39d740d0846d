#include "petrodb/production/ISampleAnalysisData.h"
#include "production/ReportPair.h"

using namespace petrodb;
using namespace petrodb::laboratory;

namespace {

using R = SampleAnalysisRow;

struct Statements {
  static constexpr Pattern<"select %sb.WellID from W_SAMPLE_ANALYSIS_DATA  a LEFT JOIN W_SAMPLE_ANALYSIS  b ON "
                           "a.AnalysisID = b.AnalysisID where a.AnalysisID = %d and a.SampleNumber = '%s'">
      rowsOfSample{};
  static constexpr Pattern<"select * from W_SAMPLE_ANALYSIS_DATA where AnalysisID = %d and SampleNumber = '%s' and "
                           "SampleDepth = '%f' ">
      rowExists{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS_DATA where AnalysisID = %d and SampleNumber = '%s' and "
                           "SampleDepth = '%f'">
      deleteRow{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS_DATA where AnalysisID = %d"> deleteRows{};
  static constexpr Pattern<"select AnalysisID from W_SAMPLE_ANALYSIS where ProjectName = '%s'"> projectIDs{};
  static constexpr Pattern<"delete from W_SAMPLE_ANALYSIS_DATA where AnalysisID = %d "> deleteRowsOf{};
};
using S = Statements;

const ColumnTable<R> kColumns{"W_SAMPLE_ANALYSIS_DATA", {
    Col("AnalysisID", &R::AnalysisID),
    Col("SampleNumber", &R::SampleNumber),
    Col("SampleDepth", &R::SampleDepth),
    Col("PreDrillFluidPressure", &R::PreDrillFluidPressure),
    Col("AftDrillFluidPressure", &R::AftDrillFluidPressure),
    Col("PreStrataPressure", &R::PreStrataPressure),
    Col("AftStrataPressure", &R::AftStrataPressure),
    Col("PumpPressure", &R::PumpPressure),
    Col("PumpingTime", &R::PumpingTime),
    Col("PumpingFluidVolume", &R::PumpingFluidVolume),
    Col("SamplingTime", &R::SamplingTime),
    Col("TungCapacity", &R::TungCapacity),
    Col("TungGroundPressure", &R::TungGroundPressure),
    Col("SampleVolume", &R::SampleVolume),
    Col("OilVolume", &R::OilVolume),
    Col("WaterVolume", &R::WaterVolume),
    Col("MixLiquidName", &R::MixLiquidName),
    Col("MixLiquidVolume", &R::MixLiquidVolume),
    Col("SampleChloride", &R::SampleChloride),
    Col("SampleResistivity", &R::SampleResistivity),
    Col("SampleResistivityTemp", &R::SampleResistivityTemp),
    Col("SlurryChloride", &R::SlurryChloride),
    Col("SlurryResistivity", &R::SlurryResistivity),
    Col("SlurryResistivityTemp", &R::SlurryResistivityTemp),
    Col("CO2", &R::CO2),
    Col("C1", &R::C1),
    Col("C2", &R::C2),
    Col("C3", &R::C3),
    Col("iC4", &R::iC4),
    Col("nC4", &R::nC4),
    Col("N2", &R::N2),
    Col("MarkResistivity", &R::MarkResistivity),
    Col("MarkResistivityTemp", &R::MarkResistivityTemp),
}};

const ReportRows<R> kRows{kColumns, ErrorMessage("样品分析表为空！")};

}  // namespace

class CSampleAnalysisData final : public CReportRows<ISampleAnalysisData, S, R, kRows> {
 public:
  bool LoadSampleAnalysisRows(int id, const char* sampleNumber, std::vector<R>& rows) override {
    return LoadJoined<S::rowsOfSample>(rows, id, sampleNumber);
  }
  bool SampleAnalysisRowExists(int id, const char* sampleNumber, double depth) override {
    return Exists(S::rowExists(id, sampleNumber, depth));
  }
  bool SaveSampleAnalysisRows(const std::vector<R>& rows) override { return SaveRows(rows); }
  bool DeleteSampleAnalysisRow(int id, const char* sampleNumber, double depth) override {
    return Execute(S::deleteRow(id, sampleNumber, depth));
  }
  bool DeleteSampleAnalysisRows(int id) override { return Execute(S::deleteRows(id)); }
  bool DeleteProjectSampleAnalysisRows(const char* projectName) override { return DeleteProjectRows(projectName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSampleAnalysisData, ISampleAnalysisData)
