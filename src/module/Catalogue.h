#pragma once
// The class catalogue: a chain of registration records, one per data class,
// prepended at static initialisation.
#include "petrodb/IDataBase.h"

extern DataClassRecord* g_classCatalogueHead;

namespace petrodb {

// The record whose interface name equals `interfaceName` byte for byte, or null.
DataClassRecord* FindClassRecord(const char* interfaceName);

struct CatalogueRegistration {
  explicit CatalogueRegistration(DataClassRecord* record) {
    record->next = g_classCatalogueHead;
    g_classCatalogueHead = record;
  }
};

}  // namespace petrodb
