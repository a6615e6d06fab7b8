// Writes many picks of one correlation, in statements of hundreds.
#pragma once

#include "NORLEX_corPoint.h"
#include "NORLEX_inclinometry.h"
#include "NORLEX_wellDescription.h"
#include "correlation/cor_edit.h"
#include "correlation/mirrors.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

// Used inside the edit, which it does not finish. Border names, wells and the picks that are there
// are read once, a survey once a well that has one. Picks are kept in memory until finish().
class pickWriter {
public:
    pickWriter(corEdit& edit, correlation::onExistingPick onExisting);

    [[nodiscard]] bool open();

    enum class outcome { taken, passedOver, bad };
    // `reason` says why a pick is bad.
    [[nodiscard]] outcome add(const correlation::newPick& pick, std::wstring& reason);
    // Makes a border, where it is not there, even if it gets no picks.
    void addBorder(const std::wstring& name);
    // Picks taken so far; those behind the first `count` are given up again.
    [[nodiscard]] std::size_t size() const { return m_pending.size(); }
    void cutBack(std::size_t count);

    // Border names, mirrors, picks, stamps and announcements.
    [[nodiscard]] bool finish();
    [[nodiscard]] const correlation::pickSums& sums() const { return m_sums; }

private:
    struct knownWell {
        NORLEX_wellDescription names;
        inclHead head;
        std::vector<inclData> stations;              // given to the survey once that is made
        std::unique_ptr<NORLEX_inclinometry> survey; // made when it is first needed
    };
    struct knownBorder {
        std::int64_t id = 0; // 0: to be made
        std::wstring name;
        std::wstring group;
        bool isUsed = false;
    };
    struct pending {
        std::int64_t movedId = 0; // 0: a new one
        std::uint32_t wellId = 0;
        std::uint32_t border = 0;
        double depth = 0.0;
        double depthAbs = 0.0;
        NORLEX_borderType type = 0;
    };

    [[nodiscard]] bool readWells();
    [[nodiscard]] bool readStations();
    [[nodiscard]] bool readBorders();
    [[nodiscard]] bool readPicks();
    [[nodiscard]] std::wstring complete(knownWell& of, NORLEX_geometryRecord& record);
    [[nodiscard]] std::uint32_t borderOf(const std::wstring& name, const std::wstring& group);
    [[nodiscard]] bool makeBorders();
    [[nodiscard]] bool writePicks();
    [[nodiscard]] bool stamp();

    corEdit& m_edit;
    correlation::onExistingPick m_onExisting;
    std::unordered_map<std::uint32_t, knownWell> m_wells;
    std::vector<knownBorder> m_borders;
    std::unordered_map<std::wstring, std::uint32_t> m_borderByName;
    // Picks that are there or were added, by well and border: their keys, 0 for those that were
    // added.
    std::unordered_map<std::uint64_t, std::int64_t> m_present;
    std::vector<pending> m_pending;
    correlation::pickSums m_sums;
};
