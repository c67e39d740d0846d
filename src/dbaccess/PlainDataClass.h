#pragma once
// A data class that offers only the operations every data object has.
#include "dbaccess/DataObject.h"
#include "petrodb/PlainInterfaces.h"

#define PETRODB_PLAIN_DATA_CLASS(Class, Interface)          \
  class Class final : public petrodb::CDataObject<Interface> { \
    PETRODB_DATA_CLASS                                      \
  };                                                        \
  PETRODB_REGISTER_CLASS(Class, Interface)
