#include "network/NetworkCommon.h"
#include "petrodb/network/IProject.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from r_project where ProjName = '%s'"> kLoadCase;
constexpr Pattern<"select * from r_project where projname='%s'"> kCaseExists;
constexpr Pattern<"select * from r_project where PipenetName = '%s' order by  ProjName"> kLoadNetworkCases;
constexpr Pattern<"select * from r_project order by projname"> kLoadAll;
constexpr Pattern<"select distinct PipenetName from r_project"> kListNetworks;
constexpr Pattern<"delete from r_project where ProjName = '%s'"> kDeleteCase;

const ColumnTable<CaseRecord> kColumns{"r_project", {
    Col("ProjName", &CaseRecord::ProjName),
    Col("PipenetName", &CaseRecord::PipenetName),
    Col("CreateDate", &CaseRecord::CreateDate),
    Col("Creator", &CaseRecord::Creator),
    Col("Memo", &CaseRecord::Memo),
    Col("TestDate", &CaseRecord::TestDate),
}};

constexpr Message kEmptyName = ErrorMessage("工况名称不能为空！");
const ReplaceSteps kSave{"r_project", Probe::First, {}, kSaveFailed};

}  // namespace

class CProject final : public CDataObject<IProject> {
 public:
  bool LoadCase(const char* caseName, CaseRecord& record) override {
    return LoadOne(kLoadCase(caseName), kColumns, record);
  }
  bool CaseExists(const char* caseName) override { return Exists(kCaseExists(caseName)); }
  bool LoadNetworkCases(const char* network, std::vector<CaseRecord>& records) override {
    return LoadAll(kLoadNetworkCases(network), kColumns, records, Fill::Clear).found();
  }
  bool LoadAllCases(std::vector<CaseRecord>& records) override {
    return LoadAll(kLoadAll(), kColumns, records, Fill::Clear).found();
  }
  bool ListCaseNetworks(std::vector<std::string>& networks) override {
    return ListColumn(kListNetworks(), "PipenetName", networks, Fill::Clear).found();
  }

  // A case is added once: a name already used is refused, never replaced.
  bool SaveCase(const CaseRecord& record) override {
    if (!KeyGiven(record.ProjName, kEmptyName)) return false;
    // A name holding a quote cannot be asked for, so it is refused before anything is sent.
    if (kCaseExists(record.ProjName.c_str()).refused()) return false;
    if (CaseExists(record.ProjName.c_str())) {
      ErrorMessageBox("工况 " + record.ProjName + " 已经存在！");
      return false;
    }
    return Save(kSave, [&](CDbManage& db) { kColumns.AddRow(db, record); });
  }
  bool DeleteCase(const char* caseName) override {
    return KeyGiven(caseName, kEmptyName) && Execute(kDeleteCase(caseName));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CProject, IProject)
