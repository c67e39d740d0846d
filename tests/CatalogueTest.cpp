// The factory and the class catalogue.
#include <cstring>
#include <set>
#include <tuple>

#include "TestSupport.h"
#include "module/Catalogue.h"
#include "petrodb/project/IBasicProjectData.h"

namespace petrodb::test {
namespace {

using CatalogueTest = ProjectTest;

// A name not in the catalogue, and a record that cannot make its object.
TEST_F(CatalogueTest, LookupIsExactAndFailuresShowTheirMessages) {
  for (const char* name : {"ibasicprojectdata", "CBasicProjectData", "IBasicProjectDataX", ""})
    EXPECT_EQ(factory_->CreateObject(name), nullptr) << name;
  DataClassRecord* const head = g_classCatalogueHead;
  DataClassRecord failing{"CFailing", "IFailing", +[]() -> IDataBase* { return nullptr; }, nullptr};
  DataClassRecord missing{"CMissing", "IMissing", nullptr, nullptr};
  CatalogueRegistration{&failing};
  CatalogueRegistration{&missing};
  EXPECT_EQ(factory_->CreateObject("IFailing"), nullptr);
  EXPECT_EQ(factory_->CreateObject("IMissing"), nullptr);
  g_classCatalogueHead = head;
  using M = std::tuple<std::string, MessageStyle, std::string>;
  std::vector<M> shown;
  for (const auto& m : messages_.messages()) shown.emplace_back(m.text, m.style, m.caption);
  const M unknown{"型录表中没有找到该对象的相应类！", MessageStyle::Application, ""};
  const M failed{"创建该对象失败！", MessageStyle::Plain, "错误信息"};
  EXPECT_EQ(shown, (std::vector<M>{unknown, unknown, unknown, unknown, failed, failed}));
}

TEST_F(CatalogueTest, ClassNamesFollowTheInterfaceNames) {
  std::set<std::string> interfaces;
  for (DataClassRecord* r = g_classCatalogueHead; r; r = r->next) {
    EXPECT_TRUE(interfaces.insert(r->interfaceName).second) << "registered twice: " << r->interfaceName;
    const std::string itf = r->interfaceName, cls = r->className;
    static const std::map<std::string, std::string> exceptions = {
        {"ISeisHFItem", "CSeisHFItemData"},
        {"IVspHodoGraphData", "CVspHodoGraph"},
        {"IWellSeisHorizon", "CWellSeisHorizonData"},
        {"IWellBoreStructural", "CWellBoreStructuralData"}};
    const auto e = exceptions.find(itf);
    EXPECT_EQ(cls, e != exceptions.end() ? e->second : "C" + itf.substr(1));
    EXPECT_NE(std::unique_ptr<IDataBase>(factory_->CreateObject(r->interfaceName)), nullptr) << itf;
  }
  // Every interface a host may name, and no other.
  static const std::set<std::string> kAll = {
      "IAOIData", "IAcentricPump", "IAcentricPumpParam", "IAliasData", "IBasicDataOper", "IBasicProjectData",
      "IBasicWellData", "ICSData", "ICementationQuaEval", "IColorNumStandard", "ICurveDictionary", "ICurvealiasData",
      "IDataBaseVersion", "IDeviateData", "IEarthShockBodyData", "IEconomicFlowVel", "IEpaCurve",
      "IFaultPlane3DData", "IFaultStickData", "IFlowMeter", "IGeneralParamData", "IGeo_BasicData", "IImageData",
      "IInjIndex", "IInterpretData", "ILateralCoreData", "ILineCoor2DData", "ILineGrid3DData", "ILineGroupData",
      "ILithologyMarkerData", "ILogData", "IMarkerData", "IMarkerTest", "IMarkerTestData", "IMetaTypeData", "IMotor",
      "IMpData", "IMpTest", "INode", "IOilTestData", "IOptPump", "IOptSta", "IOptSys", "IOracleWellTest",
      "IPerforatedSec", "IPicData", "IPipe", "IPipeCheckResults", "IPipenet", "IPlanCost", "IPressureGage",
      "IProductionData", "IProfileLineData", "IProject", "IPump", "IPumpInputPower", "IPumpParam", "IQuaEvalData",
      "IReservoir", "IRodPump", "IRodPumpParam", "IRodStruct", "ISampleAnalysis", "ISampleAnalysisData",
      "ISectionWellListData", "ISeisHFItem", "ISeismicVSPData", "IShotData", "ISimuEff", "ISimuNode", "ISimuPipe",
      "ISimuSta", "ISmallMarkerData", "ISourceData", "ISpecificData", "IStaAcentricPump", "IStaRodPump", "IStaTest",
      "IStressTestSampling", "IStressTestSamplingData", "IStructureData", "ISysConfig", "ITakeCoreData",
      "ITargetData", "ITee", "ITestEffAnalyseData", "ITestEffAnalyseResult", "ITextData", "ITransParas", "IUnitCode",
      "IUpdateProjectArea", "IUserCode", "IValve", "IVspAlgoPathData", "IVspDeteData", "IVspGeneralData",
      "IVspHodoGraphData", "IVspParamData", "IVspProjectData", "IVspSegyLineData", "IVspVelData", "IWaveletData",
      "IWellBoreStructural", "IWellGroupData", "IWellListData", "IWellSeisHorizon", "IWellSituationAndTreatment",
      "IWellTest"};
  EXPECT_EQ(interfaces, kAll);
}

}  // namespace
}  // namespace petrodb::test
