#pragma once
// Completion and perforation data of water-injection wells (w_perforated_sec).
// Wells are named by their well number Jh, which is also the NodeName of the
// well's node (node type 2) in the surface pipeline network. A well may have
// several rows.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PerforatedSection {
  std::string Jh;  // well number
  std::string Prod_horizon;
  double Total_depth = 0;
  double Well_bottom = 0;
  double Case_out_dia = 0;
  double Case_in_dia = 0;
  double Case_thickness = 0;
  double Perf_thickness = 0;
  double Perf_section = 0;
  std::string Perf_horizon;
  std::string Inj_date;  // as text
  double Tube_comp_dist = 0;
  double Inj_section = 0;
  double Cement_top_depth = 0;
  double Azimuth = 0;
  double Inc = 0;
  double Hole_dia = 0;
  double Turb_coef = 0;
  double Flow_vol_coef = 0;
  double Flow_den = 0;
  double Hole_pass_len = 0;
  double Hole_pass_dia = 0;
  double Compaction_perm = 0;
  double Compaction_rad = 0;
  double Reservoir_P = 0;
  int Horizon_num = 0;

  bool operator==(const PerforatedSection&) const = default;
};

class PETRODB_API IPerforatedSec : public IDataBase {
 public:
  // Rows whose well number starts with the prefix (an empty prefix: every row).
  virtual bool FindPerforatedSections(const char* wellNumberPrefix, int ignored1, int ignored2,
                                      std::vector<PerforatedSection>& rows) = 0;
  virtual bool LoadPerforatedSections(const char* wellNumber, std::vector<PerforatedSection>& rows) = 0;
  virtual bool LoadAllPerforatedSections(std::vector<PerforatedSection>& rows) = 0;
  // The rows of the injection wells (node type 2) of one pipeline network.
  virtual bool LoadNetworkPerforatedSections(const char* pipenetName, std::vector<PerforatedSection>& rows) = 0;
  // Replaces every row of the well by this one; failures are shown.
  virtual bool SavePerforatedSection(const PerforatedSection& row) = 0;
  // As SavePerforatedSection, showing only a missing table.
  virtual bool SavePerforatedSectionQuiet(const PerforatedSection& row) = 0;
  // Removes the rows of every listed well first, then writes all rows, so
  // several rows of one well are all kept.
  virtual bool SavePerforatedSections(const std::vector<PerforatedSection>& rows) = 0;
  virtual bool DeletePerforatedSections(const char* wellNumber) = 0;
  virtual bool DeleteNetworkPerforatedSections(const char* pipenetName) = 0;
  virtual bool DeletePerforatedSectionsOfWells(const std::vector<std::string>& wellNumbers) = 0;
};
