#pragma once

#include "NORLEX_inclinometry.h"
#include "odbc_database.h"

#include <gtest/gtest.h>

#include <vector>

// Well 7 of altitude 100, its head at (1000, 2000), in a database that holds only the tables a
// survey needs.
class SurveyTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(db.connect(":memory:"));
        run(L"CREATE TABLE well_base (w_id INTEGER, altitude DOUBLE PRECISION, "
            L"x DOUBLE PRECISION, y DOUBLE PRECISION)");
        run(L"CREATE TABLE inclinometry (w_id INTEGER NOT NULL, depth DOUBLE PRECISION NOT NULL, "
            L"angle DOUBLE PRECISION NOT NULL, azimuth DOUBLE PRECISION NOT NULL )");
        run(L"INSERT INTO well_base VALUES(7, 100, 1000, 2000)");
    }

    void run(std::wstring_view statement) { ASSERT_TRUE(db.exec(statement)); }

    // Stores the stations in place of those there are.
    void store(NORLEX_inclinometry& incl, const std::vector<inclData>& stations) {
        ASSERT_TRUE(db.begin_transaction());
        ASSERT_TRUE(incl.clear());
        for (const auto& s : stations)
            ASSERT_TRUE(incl.addPoint(s.depth, s.angle, s.azimuth));
        ASSERT_TRUE(db.end_transaction());
    }

    NORLEX_inclinometry survey(const std::vector<inclData>& stations) {
        NORLEX_inclinometry incl(&db, 7);
        store(incl, stations);
        incl.update();
        return incl;
    }

    static inclData station(double depth, double angle, double azimuth) {
        inclData s;
        s.depth = depth;
        s.angle = angle;
        s.azimuth = azimuth;
        return s;
    }

    odbc_database db;
};
