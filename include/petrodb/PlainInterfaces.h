#pragma once
// Interfaces the catalogue offers with the common operations only: their
// records and operations are kept by applications outside this library.
#include "petrodb/IDataBase.h"

#define PETRODB_PLAIN_INTERFACE(Name) \
  class PETRODB_API Name : public IDataBase {}

PETRODB_PLAIN_INTERFACE(ICSData);                     // coordinate-system records
PETRODB_PLAIN_INTERFACE(IColorNumStandard);           // colour standards
PETRODB_PLAIN_INTERFACE(IGeo_BasicData);              // geology basic table
PETRODB_PLAIN_INTERFACE(IImageData);                  // images
PETRODB_PLAIN_INTERFACE(ILithologyMarkerData);        // lithology markers
PETRODB_PLAIN_INTERFACE(IMetaTypeData);               // metadata types
PETRODB_PLAIN_INTERFACE(IPicData);                    // pictures
PETRODB_PLAIN_INTERFACE(ISmallMarkerData);            // small-layer markers
PETRODB_PLAIN_INTERFACE(ITextData);                   // text data
PETRODB_PLAIN_INTERFACE(ITransParas);                 // import parameters
PETRODB_PLAIN_INTERFACE(IWellSituationAndTreatment);  // well situation records

#undef PETRODB_PLAIN_INTERFACE
