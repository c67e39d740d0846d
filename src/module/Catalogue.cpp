#include "module/Catalogue.h"

// Constant-initialised, so it is null before any registration runs.
DataClassRecord* g_classCatalogueHead = nullptr;

namespace petrodb {

DataClassRecord* FindClassRecord(const char* interfaceName) {
  if (!interfaceName) return nullptr;
  for (DataClassRecord* record = g_classCatalogueHead; record; record = record->next) {
    const auto* a = reinterpret_cast<const unsigned char*>(interfaceName);
    const auto* b = reinterpret_cast<const unsigned char*>(record->interfaceName);
    while (*a && *a == *b) ++a, ++b;
    if (*a == *b) return record;
  }
  return nullptr;
}

}  // namespace petrodb
