#pragma once
// The injection stations' efficiency analysis (t_eff_analyse), one row per
// station (StaName) and date (Scrq). `date` arguments are the caller's date
// literal of the database (#2024-1-5# on an Access file, '2024-01-05' on a
// server), spliced into the statements unquoted; a record's Scrq is such a
// literal when it is saved (the date inside the delimiters is stored). A loaded
// Scrq reads back as "YYYY-MM-DD HH:MM:SS", which is no literal: saving a loaded
// record as it is fails, its delete being no statement that can run. Lists are
// emptied first. Nothing is shown on failure except a failed write
// ("保存数据库出错！" under "错误信息").
//
// The delete of one analysis is written in the Access form "delete * from": a
// server refuses it, so on a server that delete, and the replace of one
// analysis that depends on it, fail and change nothing.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

// Efficiencies (…xl: motor, pump, network, whole system), the system's unit
// power consumption, input power, losses (…sh: motor, pump, throttling,
// network), effective energy and the shares (…bl); units are the site's.
struct EffAnalyseValues {
  double Djxl = 0;
  double Zsbxl = 0;
  double Gwxl = 0;
  double Zsxtxl = 0;
  double Zsxtdh = 0;
  double Srgl = 0;
  double Djsh = 0;
  double Zsbsh = 0;
  double Jlsh = 0;
  double Gwsh = 0;
  double Yxzrnl = 0;
  double Djshbl = 0;
  double Zsbshbl = 0;
  double Jlshbl = 0;
  double Gwshbl = 0;
  double Jknlbl = 0;
};

struct TestEffAnalyseRecord {
  std::string StaName;  // injection station
  std::string Scrq;     // date: a literal when saving, the stored date when loaded
  EffAnalyseValues values;
};

class PETRODB_API ITestEffAnalyseData : public IDataBase {
 public:
  // The station's analysis of the date. False when there is none or a field
  // cannot be read (the fields read before it are set).
  virtual bool LoadEffAnalyse(const char* station, const char* date, TestEffAnalyseRecord& record) = 0;
  // Every analysis with a date between the two literals. False when there is
  // none, or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadEffAnalysesBetween(const char* date1, const char* date2,
                                      std::vector<TestEffAnalyseRecord>& records) = 0;
  // The dates with an analysis, ordered, as "YYYY-MM-DD HH:MM:SS".
  virtual bool ListEffAnalyseDates(std::vector<std::string>& dates) = 0;
  virtual bool EffAnalyseExists(const char* station, const char* date) = 0;
  // Replaces the analysis of the record's station and date: the delete of
  // DeleteEffAnalyse, which must succeed, then an insert. An empty station or
  // date, or a missing table, fails silently; a failed write shows
  // "保存数据库出错！". On failure nothing is written.
  virtual bool SaveEffAnalyse(const TestEffAnalyseRecord& record) = 0;
  // Appends every record, deleting nothing first.
  virtual bool SaveEffAnalyses(const std::vector<TestEffAnalyseRecord>& records) = 0;
  // Deletes the station's analysis of the date (Access form, see above).
  virtual bool DeleteEffAnalyse(const char* station, const char* date) = 0;
  // Deletes every analysis of the station; true also when there was none.
  virtual bool DeleteStationEffAnalyses(const char* station) = 0;
};
