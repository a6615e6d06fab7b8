// The user and password of a server, where its description does not hold them.
#pragma once

#include "NORLEX_contDescription.h"

// From the variables WELLDB_USER and WELLDB_PASSWORD of the environment; what is still missing is
// asked for on the terminal, the password without showing it. False, having said what would do,
// when there is none.
[[nodiscard]] bool completeCredentials(NORLEX_contDescription& description);
