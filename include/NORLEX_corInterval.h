// The intervals of one property on a list of wells, as they are drawn side by side.
#pragma once

#include "NORLEX_contDescription.h"
#include "NORLEX_export.h"
#include "NORLEX_propCopy.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class NORLEX_wellContainer;

// The container is opened at once and kept open for the object's life. Wells are named by their
// position in the list; one that is not below the number of wells is answered false at once.
//
// Every depth, given or answered, is of the object's direction: measured depths, which grow
// downwards, or absolute ones, which fall. A pair of depths may be given in either order. An
// interval holds both of its ends.
class NORLEX_API NORLEX_corInterval {
public:
    using interval = std::pair<double, double>; // top, bottom

    NORLEX_corInterval(const NORLEX_contDescription& container,
                       std::vector<NORLEX_wellDescription> wells,
                       const NORLEX_propDescription& property,
                       NORLEX_dataDirection direction);
    ~NORLEX_corInterval();
    NORLEX_corInterval(const NORLEX_corInterval&) = delete;
    NORLEX_corInterval& operator=(const NORLEX_corInterval&) = delete;

    [[nodiscard]] bool isOK() const; // the container is open
    void setDataDirection(NORLEX_dataDirection direction);
    void updateWellList(std::vector<NORLEX_wellDescription> wells);

    // Whether an interval reaches over any part of what lies between the depths.
    [[nodiscard]] bool isObjectAtDepth(std::size_t well, double depth1, double depth2) const;
    // Whether a top or a bottom lies between the depths.
    [[nodiscard]] bool isBorderAtDepth(std::size_t well, double depth1, double depth2) const;
    // All of them, each once, from the top down. False when they cannot be read.
    [[nodiscard]] bool getIntervals(std::size_t well, std::vector<interval>& intervals) const;
    // The interval around a depth; of several the one that begins nearest above it.
    [[nodiscard]] bool
    foundInterval(std::size_t well, double depth, double& top, double& bottom) const;

    // Adds an interval with an empty value in every field of the property, which must be there; the
    // depths of the other direction are those of the survey.
    [[nodiscard]] bool addInterval(std::size_t well, double top, double bottom);
    // Moves every top and bottom at `oldDepth`, so that what adjoins stays together. Refused where
    // there is none, and where an interval would be left with no thickness or turned over.
    [[nodiscard]] bool moveIntervalBorder(std::size_t well, double oldDepth, double newDepth);
    // Deletes the intervals around a depth.
    [[nodiscard]] bool delInterval(std::size_t well, double depth);

private:
    [[nodiscard]] const NORLEX_wellDescription* wellAt(std::size_t well) const;
    [[nodiscard]] bool isAny(std::size_t well, const std::wstring& condition) const;

    std::unique_ptr<NORLEX_wellContainer> m_container;
    std::vector<NORLEX_wellDescription> m_wells;
    NORLEX_propDescription m_property;
    NORLEX_dataDirection m_direction;
};
