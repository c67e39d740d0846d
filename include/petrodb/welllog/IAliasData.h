#pragma once
// Alias names of pattern images (b_image_alias).
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct ImageAlias {
  std::string AliasName;
  int ImageType = 0;  // written by the saves, not read by the loads
  int ImageFacet = 0;
  std::string ImageName;
};

class PETRODB_API IAliasData : public IDataBase {
 public:
  virtual bool LoadImageAliases(std::vector<ImageAlias>& aliases) = 0;
  virtual bool LoadImageAliasesOfFacet(int facet, std::vector<ImageAlias>& aliases) = 0;
  // Replaces the alias of the same name.
  virtual bool SaveImageAlias(const ImageAlias& alias) = 0;
  // Appends, deleting nothing first.
  virtual bool SaveImageAliases(const std::vector<ImageAlias>& aliases) = 0;
  virtual bool DeleteAllImageAliases() = 0;
};
