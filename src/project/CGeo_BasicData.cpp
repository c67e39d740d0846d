#include "dbaccess/PlainDataClass.h"

PETRODB_PLAIN_DATA_CLASS(CGeo_BasicData, IGeo_BasicData)
