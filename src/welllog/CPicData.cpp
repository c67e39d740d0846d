#include "dbaccess/PlainDataClass.h"

PETRODB_PLAIN_DATA_CLASS(CPicData, IPicData)
