// The module's two C exports.
#include <new>

#include "module/DataFactory.h"

extern "C" {

IDataFactory* CreateDataFactoryObject() { return new (std::nothrow) CDataFactory(); }

void DeleteDataFactory(IDataFactory* factory) { delete factory; }

}
