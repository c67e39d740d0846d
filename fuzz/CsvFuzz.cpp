#include "Entry.h"
PETRODB_FUZZ_ENTRY(CsvReader)
