#include "Glossary.h"

#include <cstdio>
#include <memory>
#include <mutex>

#include "Progress.h"
#include "petrodb/Host.h"

namespace petrodb::cli {

const std::vector<Gloss>& Glossary() {
  static const std::vector<Gloss> table{
      // The caption of error messages, and the text while a project database is made.
      {"错误信息", "error"},
      {"系统正在创建数据库，请耐心等候...", "creating the database, please wait..."},

      // Projects and the project file.
      {"创建工区失败!\n工区目录下可能已有名为%s的工区。",
       "creating the project failed: the projects directory may already hold a project named %s"},
      {"该工区已经存在，请重新操作！", "this project already exists; try again with another name"},
      {"创建工区失败!\n因为无法拷贝缺省数据库。", "creating the project failed: the template database could not be copied"},
      {"数据库创建成功结束！", "the database was created"},
      {"数据库连接失败或工区表不存在！", "cannot connect to the database, or it has no project table"},
      {"请先更新数据库！", "update the database first (it has no version table)"},
      {"型录表中没有找到该对象的相应类！", "the catalogue has no class for this interface name"},
      {"创建该对象失败！", "the object could not be created"},
      {"保存数据库出错！", "saving to the database failed"},
      {"保存出错！", "saving failed"},
      {"数据保存出错！", "saving the data failed"},

      // A name or key left empty.
      {"工区名不能为空！", "the project name must not be empty"},
      {"工区名称不能为空！", "the project name must not be empty"},
      {"工区名称\\测网名称不能为空！", "the project name and the survey name must not be empty"},
      {"井号不能为空！", "the well ID must not be empty"},
      {"井名称不能为空！", "the well name must not be empty"},
      {"注水井号不能为空！", "the injection well ID must not be empty"},
      {"井号或Vsp工区名称不能为空！", "the well ID and the VSP project name must not be empty"},
      {"井列表名称不能为空！", "the well list name must not be empty"},
      {"井名组合不能为空！", "the list of wells must not be empty"},
      {"剖面名称不能为空！", "the section name must not be empty"},
      {"区块名称不能为空！", "the block name must not be empty"},
      {"AOI区域名不能为空！", "the area of interest name must not be empty"},
      {"LineGrid3D区域名不能为空！", "the 3D line grid area name must not be empty"},
      {"三维地震测网数据名称不能为空！", "the 3D seismic grid name must not be empty"},
      {"VSP常用数据名称不能为空！", "the VSP general data name must not be empty"},
      {"检波器名称不能为空！", "the geophone name must not be empty"},
      {"速度模型名称不能为空！", "the velocity model name must not be empty"},
      {"初置名称不能为空！", "the initial setting name must not be empty"},
      {"算法名称不能为空！", "the algorithm name must not be empty"},
      {"算法文件名称不能为空！", "the algorithm file name must not be empty"},
      {"算法路径不能为空！", "the algorithm path must not be empty"},
      {"算法路径或算法名称不能为空！", "the algorithm path and the algorithm name must not be empty"},
      {"建模名称和断层名称不能为空！", "the model name and the fault name must not be empty"},
      {"断层块名称不能为空！", "the fault block name must not be empty"},
      {"层名称不能为空！", "the marker (layer) name must not be empty"},
      {"曲线名称不能为空！", "the curve name must not be empty"},
      {"曲线ID不能为空！", "the curve ID must not be empty"},
      {"用户登录名不能为空！", "the user login name must not be empty"},
      {"单位代码名不能为空！", "the unit code name must not be empty"},
      {"系统参数代码名不能为空！", "the system parameter code must not be empty"},
      {"管网名称不能为空！", "the pipeline network name must not be empty"},
      {"管网名称不能为空。", "the pipeline network name must not be empty"},
      {"管网节点名称不能为空！", "the network node name must not be empty"},
      {"管网管子名称不能为空！", "the network pipe name must not be empty"},
      {"节点名称不能为空！", "the node name must not be empty"},
      {"管子代码不能为空！", "the pipe code must not be empty"},
      {"工况名称不能为空！", "the case name must not be empty"},
      {"工况名称不能为空", "the case name must not be empty"},
      {"工况名称或管子名称不能为空", "the case name and the pipe name must not be empty"},
      {"工况名称或泵ID不能为空", "the case name and the pump ID must not be empty"},
      {"效率仿真名称不能为空！", "the efficiency simulation name must not be empty"},
      {"注水系统性能参数优化名称不能为空！", "the injection system optimisation name must not be empty"},
      {"注水站优化约束条件及名称不能为空！", "the station optimisation case name must not be empty"},
      {"注水站名称不能为空！", "the injection station name must not be empty"},
      {"泵号不能为空！", "the pump number must not be empty"},
      {"泵型号不能为空！", "the pump model must not be empty"},
      {"电机型号不能为空！", "the motor model must not be empty"},
      {"阀门型号不能为空！", "the valve model must not be empty"},
      {"三通型号不能为空！", "the tee model must not be empty"},
      {"流量计型号不能为空！", "the flow meter model must not be empty"},
      {"压力表型号不能为空！", "the pressure gauge model must not be empty"},
      {"生产日期不能为空！", "the production date must not be empty"},
      {"测试日期不能为空！", "the test date must not be empty"},
      {"样品分析为空！", "the sample analysis list is empty"},

      // A table the operation needs is missing (or the database cannot be reached).
      {"AOI区域表为空！", "the area of interest table is missing"},
      {"三维地震测网数据表为空！", "the 3D seismic grid table is missing"},
      {"用户代码表为空！", "the user code table is missing"},
      {"单位代码表为空！", "the unit code table is missing"},
      {"系统基本参数配置表为空！", "the system parameter table is missing"},
      {"射孔段数据表为空！", "the perforation interval table is missing"},
      {"井筒管柱结构数据表为空！", "the well string structure table is missing"},
      {"管网节点数据表为空！", "the network node table is missing"},
      {"管网管子数据表为空！", "the network pipe table is missing"},
      {"泵基本数据表为空！", "the pump table is missing"},
      {"泵特性数据表为空！", "the pump characteristics table is missing"},
      {"离心泵基本数据表为空！", "the centrifugal pump table is missing"},
      {"柱塞泵基本数据表为空！", "the plunger pump table is missing"},
      {"电机基本数据表为空！", "the motor table is missing"},
      {"阀门基本数据表为空！", "the valve table is missing"},
      {"三通基本数据表为空！", "the tee table is missing"},
      {"流量计基本数据表为空！", "the flow meter table is missing"},
      {"压力表基本数据表为空！", "the pressure gauge table is missing"},
      {"注水站离心泵设备数据表为空！", "the station centrifugal pump table is missing"},
      {"注水站柱塞泵设备数据表为空！", "the station plunger pump table is missing"},
      {"节点仿真结果表为空！", "the node simulation results table is missing"},
      {"节点仿真结果数据表为空！", "the node simulation results table is missing"},
      {"管子仿真结果表为空！", "the pipe simulation results table is missing"},
      {"管子仿真结果数据表为空！", "the pipe simulation results table is missing"},
      {"注水站仿真结果表为空！", "the station simulation results table is missing"},
      {"注水站仿真结果数据表为空！", "the station simulation results table is missing"},
      {"效率仿真结果表为空！", "the efficiency simulation results table is missing"},
      {"注水系统性能参数优化结果表为空！", "the injection system optimisation results table is missing"},
      {"注水站优化约束条件及结果表为空！", "the station optimisation table is missing"},
      {"注水站优化约束条件及结果数据表为空！", "the station optimisation table is missing"},
      {"注水泵优化约束条件及结果表为空！", "the pump optimisation table is missing"},
      {"注水站日生产数据表为空！", "the station daily production table is missing"},
      {"注水站机泵日生产数据表为空！", "the station pump daily production table is missing"},
      {"注水站机泵测试数据表为空！", "the station pump test table is missing"},
      {"注水井日生产数据表为空！", "the injection well daily production table is missing"},
      {"样品分析表为空！", "the sample analysis table is missing"},
      {"测压取样数据表为空！", "the pressure test and sampling table is missing"},

      // Records that clash or do not fit.
      {"工况 %s 已经存在！", "case %s already exists"},
      {"井%s的下列测井曲线的曲线值与深度值个数不同，请修改后再保存：\n%s",
       "well %s: these log curves have not as many values as depths; correct them before saving:\n%s"},
      {"测井曲线%s的曲线数据个数与深度数据个数不同，请检查或重新加载。",
       "log curve %s has not as many values as depths; check it or load it again"},
  };
  return table;
}

bool MatchPattern(const std::string& pattern, const std::string& text, std::vector<std::string>* parts) {
  const auto hole = pattern.find("%s");
  if (hole == std::string::npos) return pattern == text;
  if (text.compare(0, hole, pattern, 0, hole) != 0) return false;
  const std::string rest = pattern.substr(hole + 2);
  // The shortest text for this hole that lets the rest match.
  for (std::size_t end = hole; end <= text.size(); ++end) {
    std::vector<std::string> later;
    if (MatchPattern(rest, text.substr(end), parts ? &later : nullptr)) {
      if (parts) {
        parts->push_back(text.substr(hole, end - hole));
        parts->insert(parts->end(), later.begin(), later.end());
      }
      return true;
    }
  }
  return false;
}

std::optional<std::string> English(const std::string& text) {
  for (const auto& g : Glossary()) {
    std::vector<std::string> parts;
    if (!MatchPattern(g.text, text, &parts)) continue;
    std::string english = g.english;
    std::size_t at = 0;
    for (const auto& part : parts) {
      at = english.find("%s", at);
      if (at == std::string::npos) break;
      english.replace(at, 2, part);
      at += part.size();
    }
    return english;
  }
  return std::nullopt;
}

namespace {
bool g_glossed = true;
}  // namespace

void SetGlossed(bool glossed) { g_glossed = glossed; }

std::string MessageLine(const std::string& text, const std::string& caption) {
  std::string line = "petrodb: " + (caption.empty() ? "" : caption + ": ") + text;
  if (!g_glossed) return line;
  const auto english = English(text);
  const auto captionEnglish = caption.empty() ? std::optional<std::string>("") : English(caption);
  if (!english && (caption.empty() || !captionEnglish)) return line;
  std::string gloss = captionEnglish && !captionEnglish->empty() ? *captionEnglish + ": " : "";
  gloss += english ? *english : "(no English text for this message)";
  return line + " (" + gloss + ")";
}

void InstallLibraryHandlers() {
  SetMessageHandler([](MessageStyle, const std::string& text, const std::string& caption) {
    std::fprintf(stderr, "%s\n", MessageLine(text, caption).c_str());
  });
  // One bar per piece of long work; a step that reaches the total ends it.
  static std::mutex mutex;
  static std::unique_ptr<ProgressBar> bar;
  ProgressHandler progress;
  progress.step = [](std::uint64_t done, std::uint64_t total) {
    std::lock_guard lock(mutex);
    if (!bar) bar = std::make_unique<ProgressBar>("saving", total, "rows");
    bar->Set(done);
    if (total != 0 && done >= total) bar.reset();
  };
  progress.end = [] {
    std::lock_guard lock(mutex);
    bar.reset();
  };
  SetProgressHandler(std::move(progress));
}

}  // namespace petrodb::cli
