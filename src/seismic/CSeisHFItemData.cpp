#include "dbaccess/DataObject.h"
#include "petrodb/seismic/ISeisHFItem.h"

using namespace petrodb;

namespace {

// The kind is written '1' (true) or '0' (false).
constexpr Pattern<"select distinct Survey_Name from s_horflt3d where HF_Type ='%s'and ProjectName = '%s' order by "
                  "Survey_Name">
    kSurveyNames;
// Spliced with the kind's own quote ("1'"), so a stray quote follows the kind:
// no engine runs it.
constexpr Pattern<"select distinct HFItem_Name from s_horflt3d where Survey_Name = '%s'  and HF_Type ='%s' and "
                  "ProjectName = '%s' order by HFItem_Name">
    kItemNames;
constexpr Pattern<"select HF_ID from s_horflt3d where Survey_Name = '%s' and HFItem_Name ='%s' and ProjectName ='%s' "
                  "and HF_Type ='%s'">
    kItemNumber;
constexpr Pattern<"select * from s_point where HF_ID =%d  order by SegmentID,T"> kItemPoints;
constexpr Pattern<"select HF_ID from s_horflt3d where Survey_Name = '%s' and HFItem_Name ='%s' and ProjectName ='%s'  "
                  "and HF_Type ='%s'">
    kSavedNumber;
constexpr Pattern<"delete from  s_horflt3d where Survey_Name = '%s' and ProjectName ='%s'  and HFItem_Name ='%s'  and "
                  "HF_Type ='%s'">
    kDeleteItem;
constexpr Pattern<"delete from  s_horflt3d where Survey_Name = '%s' and ProjectName ='%s'  and HF_Type ='%s'">
    kDeleteSurvey;
constexpr Pattern<"delete from  s_horflt3d where HF_Type ='%s' and ProjectName = '%s'"> kDeleteProject;
constexpr Pattern<"select distinct HFItem_Name,hf_id from s_horflt3d where ProjectName = '%s' and Survey_Name = '%s' "
                  "and %s">
    kGridItems;
constexpr Pattern<"HF_Type ='%s'"> kKindCondition;
constexpr Pattern<"select * from s_point where HF_ID =%d  order by CDP,SegmentID,Inline_No"> kByCrossline;
constexpr Pattern<"select * from s_point where HF_ID =%d  order by Inline_No, SegmentID,CDP"> kByInline;

constexpr const char* kItemTable = "s_horflt3d";
constexpr const char* kPointTable = "s_point";

const char* Kind(bool kind) { return kind ? "1" : "0"; }
sql::Raw KindWithQuote(bool kind) { return sql::Raw{kind ? "1'" : "0'"}; }

// The item row; the database numbers HF_ID.
const ColumnTable<HFItemRecord> kItemColumns{kItemTable, {
    Col("HF_ID", &HFItemRecord::HF_ID).ReadOnly(),
    Col("Survey_Name", &HFItemRecord::Survey_Name),
    Col("HFItem_Name", &HFItemRecord::HFItem_Name),
    Col("HF_Type", &HFItemRecord::HF_Type),
    Col("ProjectName", &HFItemRecord::ProjectName),
}};

const ColumnTable<HFPoint> kPointColumns{kPointTable, {
    Col("HF_ID", &HFPoint::HF_ID).WriteOnly(),
    Col("SegmentID", &HFPoint::SegmentID),
    Col("CDP", &HFPoint::CDP),
    Col("Inline_No", &HFPoint::Inline_No),
    Col("X", &HFPoint::X),
    Col("Y", &HFPoint::Y),
    Col("T", &HFPoint::T),
}};

// The inline-major pass reads the segment from the column spelt SegMentID.
const ColumnTable<HFPoint> kInlinePointColumns{kPointTable, {
    Col("SegMentID", &HFPoint::SegmentID),
    Col("CDP", &HFPoint::CDP),
    Col("Inline_No", &HFPoint::Inline_No),
    Col("X", &HFPoint::X),
    Col("Y", &HFPoint::Y),
    Col("T", &HFPoint::T),
}};

const ColumnTable<HFItemGrid> kGridItemColumns{kItemTable, {
    Col("HFItem_Name", &HFItemGrid::HFItem_Name),
    Col("hf_id", &HFItemGrid::HF_ID).ReadOnly(),
}};

void Own(std::vector<HFPoint>& points, int number) {
  for (auto& p : points) p.HF_ID = number;
}

}  // namespace

class CSeisHFItemData final : public CDataObject<ISeisHFItem> {
 public:
  bool GetHFSurveyNames(const char* project, bool kind, std::vector<std::string>& names) override {
    return ListColumn(kSurveyNames(Kind(kind), project), "Survey_Name", names, Fill::Clear).ran();
  }

  bool GetHFItemNames(const char* project, const char* survey, bool kind, std::vector<std::string>& names) override {
    return ListColumn(kItemNames(survey, KindWithQuote(kind), project), "HFItem_Name", names, Fill::Clear).ran();
  }

  bool LoadSurveyHF(const char* project, const char* survey, std::vector<HFItemRecord>& kindFalse,
                    std::vector<HFItemRecord>& kindTrue) override {
    kindFalse.clear();
    kindTrue.clear();
    const bool first = LoadSurveyItems(project, survey, kindFalse, false);
    const bool second = LoadSurveyItems(project, survey, kindTrue, true);
    return first && second;
  }

  bool LoadSurveyItems(const char* project, const char* survey, std::vector<HFItemRecord>& items,
                       bool kind) override {
    items.clear();
    std::vector<std::string> names;
    if (!GetHFItemNames(project, survey, kind, names)) return false;
    bool all = true;
    for (const auto& name : names) {
      HFItemRecord item;
      if (LoadHFItem(project, survey, name.c_str(), kind, item))
        items.push_back(std::move(item));
      else
        all = false;
    }
    return all;
  }

  bool LoadHFItem(const char* project, const char* survey, const char* item, bool kind,
                  HFItemRecord& record) override {
    record.Points.clear();
    int number = 0;
    if (!LoadField(kItemNumber(survey, item, project, Kind(kind)), "HF_ID", number)) return false;
    record.HF_ID = number;
    record.Survey_Name = survey;
    record.HFItem_Name = item;
    record.HF_Type = Kind(kind);
    record.ProjectName = project;
    const bool read = LoadAll(kItemPoints(number), kPointColumns, record.Points, Fill::Clear).ran();
    Own(record.Points, number);
    return read;
  }

  bool SaveHFItems(const char* project, const std::vector<HFItemRecord>& items, bool kind) override {
    for (const auto& item : items)
      if (!SaveHFItem(project, item, kind)) return false;
    return true;
  }

  // The item row is saved alone so that the database numbers it; the number is
  // read back by the item's keys before its points are written.
  bool SaveHFItem(const char* project, const HFItemRecord& item, bool kind) override {
    const Statement numberOf = kSavedNumber(item.Survey_Name, item.HFItem_Name, project, Kind(kind));
    if (numberOf.refused()) return false;
    return Atomically([&] {
      HFItemRecord row = item;
      row.HF_Type = Kind(kind);
      row.ProjectName = project;
      if (!Save(ReplaceSteps{kItemTable}, [&](CDbManage& db) { kItemColumns.AddRow(db, row); })) return false;
      std::vector<int> numbers;
      const auto readNumber = [](const CDbManage& db, int& n) { return columns::ReadValue(db, "HF_ID", n); };
      if (!LoadRows(numberOf, numbers, Fill::Clear, readNumber).found()) return false;
      std::vector<HFPoint> points = item.Points;
      Own(points, numbers.back());
      return Save(ReplaceSteps{kPointTable}, [&](CDbManage& db) { kPointColumns.AddRows(db, points); });
    });
  }

  bool DeleteHFItem(const char* project, const char* survey, const char* item, bool kind) override {
    return Execute(kDeleteItem(survey, project, item, Kind(kind)));
  }

  bool DeleteHFSurvey(const char* project, const char* survey, bool kind) override {
    return Execute(kDeleteSurvey(survey, project, Kind(kind)));
  }

  bool DeleteProjectHF(const char* project, bool kind) override {
    return Execute(kDeleteProject(Kind(kind), project));
  }

  bool LoadSurveyGrids(const char* project, const char* survey, bool kind, std::vector<HFItemGrid>& grids) override {
    if (!LoadAll(kGridItems(project, survey, kKindCondition(Kind(kind))), kGridItemColumns, grids, Fill::Clear).ran())
      return false;
    bool all = true;
    for (auto& grid : grids) {
      all = LoadAll(kByCrossline(grid.HF_ID), kPointColumns, grid.ByCrossline, Fill::Clear).ran() && all;
      all = LoadAll(kByInline(grid.HF_ID), kInlinePointColumns, grid.ByInline, Fill::Clear).ran() && all;
      Own(grid.ByCrossline, grid.HF_ID);
      Own(grid.ByInline, grid.HF_ID);
    }
    return all;
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSeisHFItemData, ISeisHFItem)
