// The wells of a selection, for an operation of an open container.
#pragma once

#include <memory>

class NORLEX_selection;
class NORLEX_wellContainer;

namespace selectedWells {

// Computes the selection anew through the container. Refuses, with a line, a container that is
// closed and no selection.
[[nodiscard]] bool compute(const NORLEX_wellContainer& container,
                           const std::shared_ptr<NORLEX_selection>& wells);

} // namespace selectedWells
