// Containers that inputs begin with, kept as bytes: a copy is cheaper than one made anew.
#pragma once

#include "fuzz/scratch.h"

#include <string>

namespace fuzzContainer::prepared {

[[nodiscard]] const scratchFolder& folder();

// The empty one, or the one with some of everything, in place of what is in the path's folder.
void copyTo(const std::wstring& path, bool isEmpty);

} // namespace fuzzContainer::prepared
