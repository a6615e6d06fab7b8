#include "NORLEX_well.h"
#include "exchange/survey_listing.h"

bool NORLEX_well::loadInclFromLST(const std::wstring& path, bool silent) {
    std::vector<inclData> stations;
    return surveyListing::read(path, stations) && loadInclFromData(stations, silent);
}
