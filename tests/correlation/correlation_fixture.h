// Three wells, two of them of one name, and the correlation "Cor" of the borders top, mid and base.
#pragma once

#include "NORLEX_correlation.h"
#include "NORLEX_well.h"
#include "globalEventObserver.h"
#include "platform/sql_text.h"
#include "tests/support/container_fixture.h"

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

class CorrelationTest : public ContainerTest {
protected:
    using store = correlation::correlation;

    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        for (const auto& one : {first, second, namesake})
            ASSERT_TRUE(NORLEX_well::create(db(), one)) << lastError();
        // Vertical from 100 to -100, then 60 degrees from the vertical: 2 along the hole are 1
        // down.
        NORLEX_well deviated(db(), first);
        ASSERT_TRUE(deviated.setAltitude(100)
                    && deviated.loadInclFromData({station(200, 60)}, true))
            << lastError();
        ASSERT_TRUE(NORLEX_well(db(), second).setAltitude(50));
        ASSERT_TRUE(store::createCorrelationLayer(db(), cor)) << lastError();
        for (const auto* border : {L"top", L"mid", L"base"})
            ASSERT_EQ(store::createBorderName(db(), cor, border, L"a"), border) << lastError();
    }

    static inclData station(double depth, double angle) {
        inclData s;
        s.depth = depth;
        s.angle = angle;
        return s;
    }

    // "depth name" of the picks of a well as they are loaded, a comma between them.
    [[nodiscard]] std::wstring picks(const NORLEX_wellDescription& well,
                                     NORLEX_dataDirection direction = NORLEX_dataDirectionMeasured,
                                     const std::wstring& name = L"Cor") const {
        std::vector<correlation::point> points;
        if (!store::loadData(db(), {name, L"G"}, well, direction, points))
            return NORLEX_lastError();
        std::wstring out;
        for (const auto& one : points)
            out += (out.empty() ? L"" : L", ") + shortest(one.depth) + L" " + one.name
                   + (one.type == 0 ? L"" : L"/" + std::to_wstring(one.type));
        return out;
    }

    static std::wstring shortest(double value) { return sqlText::number(value); }

    [[nodiscard]] bool
    pick(const NORLEX_wellDescription& well, const std::wstring& border, double depth) const {
        return store::createBorder(db(), cor, well, border, depth);
    }

    // What is announced while `work` runs: kind and action, then names.
    [[nodiscard]] static std::wstring heard(const std::function<bool()>& work) {
        std::wstring out;
        const auto ear = std::make_shared<globalEventObserver::callback>([&](const auto& message) {
            out += (out.empty() ? L"" : L"; ") + std::to_wstring(message.kind) + L" "
                   + std::to_wstring(message.action);
            for (const auto* part : {&message.well.field,
                                     &message.well.name,
                                     &message.property.group,
                                     &message.property.name,
                                     &message.newProperty.name,
                                     &message.params[0],
                                     &message.params[1]})
                if (!part->empty())
                    out += L" " + *part;
        });
        globalEventObserver::Instance().subscribe(ear);
        return work() ? out : L"refused: " + NORLEX_lastError();
    }

    const NORLEX_wellDescription first{L"O", L"F", L"W-1", 0};
    const NORLEX_wellDescription second{L"O", L"F", L"W-2", 0};
    const NORLEX_wellDescription namesake{L"O", L"other", L"W-1", 0};
    const NORLEX_propDescription cor{L"Cor", L"G"};
};
