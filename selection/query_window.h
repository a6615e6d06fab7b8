// Wells that have data of a property inside a window of absolute depths.
#pragma once

#include "NORLEX_query.h"
#include "selection/well_set.h"

class odbc_database;

namespace queryWindow {

// Points, picks and samples that lie in the window, intervals that reach into it. Of the property
// by the data type that it has in the container; by each where wells have it of several. None for
// constructions and working elements. The two depths may stand in either order.
[[nodiscard]] wellSet::list wells(odbc_database& db, const NORLEX_query& query);

} // namespace queryWindow
