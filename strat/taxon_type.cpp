#include "NORLEX_taxonType.h"

#include "platform/string_table.h"

std::wstring getTaxonTypeName(NORLEX_taxonType type) {
    return type < NORLEX_taxonUndefined || type > NORLEX_taxonStage
               ? std::wstring()
               : stringTable::text(stringTable::taxonTypes + static_cast<unsigned int>(type));
}
