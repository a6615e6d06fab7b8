// Surveys from tables and from LAS files.
#include "tests/wells/well_fixture.h"

#include "NORLEX_inclRead_descr.h"
#include "exchange/survey_angles.h"

TEST(SurveyAngles, areReadAsPeopleWriteThem) {
    struct {
        const wchar_t* text;
        std::optional<double> azimuth;
    } const cases[] = {
        {L"45.5", 45.5},
        {L"45,5", 45.5},
        {L"-90", 270},
        {L"360", 0},
        {L"725", 5},
        {L" 45 30 ", 45.5},
        {L"45°30'36\"", 45.51},
        {L"-0:30", 359.5},
        {L"45:60", {}},
        {L"N45E", 45},
        {L"N 45 W", 315},
        {L"S10 30E", 169.5},
        {L"s0w", 180},
        {L"S90W", 270},
        {L"С45В", 45},
        {L"Ю 30 З", 210},
        {L"E", 90},
        {L"З", 270},
        {L"N91E", {}},
        {L"N-5E", {}},
        {L"E45N", {}},
        {L"N45", {}},
        {L"", {}},
        {L"x", {}},
        {L"nan", {}},
        {L"inf", {}},
        {L"1 2 3 4", {}},
        {L"45 -30", {}},
    };
    for (const auto& c : cases) {
        const auto found = surveyAngles::azimuth(c.text);
        ASSERT_EQ(found.has_value(), c.azimuth.has_value()) << ts::strconv::toUtf8(c.text);
        EXPECT_NEAR(found.value_or(0), c.azimuth.value_or(0), 1e-12) << ts::strconv::toUtf8(c.text);
    }
}

class SurveyTableTest : public WellTest {
protected:
    // "depth angle azimuth; " of every stored station.
    std::wstring stations() {
        std::wstring out;
        const auto rows =
            db()->query(L"SELECT depth, angle, azimuth FROM inclinometry ORDER BY depth");
        while (rows && rows->next())
            out += rows->get_text(0) + L" " + rows->get_text(1) + L" " + rows->get_text(2) + L"; ";
        return out;
    }

    bool load(const std::string& text, const NORLEX_inclRead_descr& description) {
        folder.write(L"s.csv", text);
        tableRW::tableReader reader;
        NORLEX_well w(db(), names);
        return reader.open(folder / L"s.csv", {})
               && w.loadInclFromReader(reader, description, report, false);
    }

    NORLEX_tableReport report;
};

TEST_F(SurveyTableTest, columnsAndUnitsAreChosen) {
    NORLEX_inclRead_descr byName;
    byName.depth.header = L"md";
    byName.angle.header = L"Dip";
    byName.azimuth.header = L"AZ";
    byName.angleKind = NORLEX_inclAngle::dipUp;
    byName.depthUnit = NORLEX_inclDepthUnit::feet;
    byName.azimuthCorrection = -10;
    ASSERT_TRUE(load("AZ;MD;DIP\n5;0;-90\nN20E;1000;-60\n", byName)) << lastError();
    EXPECT_EQ(stations(), L"0 0 355; 304.8 30 10; ");
    NORLEX_inclRead_descr byNumber;
    byNumber.depth.number = 1;
    byNumber.angle.number = 2;
    byNumber.azimuth.number = 3;
    byNumber.hasHeader = false;
    ASSERT_TRUE(load("0 ;0;\n10,5;90;180\n20;180;0\n", byNumber)) << "vertical needs no azimuth";
    EXPECT_EQ(stations(), L"0 0 0; 10.5 90 180; 20 180 0; ");
    byName.azimuth.header = L"bearing";
    EXPECT_FALSE(load("AZ;MD;DIP\n5;0;-90\n", byName)) << "no such column";
    EXPECT_EQ(stations(), L"0 0 0; 10.5 90 180; 20 180 0; ");
}

TEST_F(SurveyTableTest, badRowsAreNamed) {
    NORLEX_inclRead_descr description;
    description.depth.number = 1;
    description.angle.number = 2;
    description.azimuth.number = 3;
    const std::string table = "md,inc,azi\n"
                              "0,0,0\n"
                              "x,0,0\n"    // 3: no depth
                              "10,181,0\n" // 4: no inclination
                              "10,5,\n"    // 5: no azimuth
                              "10,5,7\n"
                              "10,5,8\n"   // 7: not below
                              "3e6,1,1\n"; // 8: no depth
    EXPECT_FALSE(load(table, description));
    EXPECT_NE(lastError().find("row 3"), std::string::npos) << lastError();
    EXPECT_EQ(stations(), L"");
    description.keepGoodRows = true;
    ASSERT_TRUE(load(table, description)) << lastError();
    EXPECT_EQ(stations(), L"0 0 0; 10 5 7; ");
    std::wstring bad;
    for (const auto& error : report.errors)
        bad += std::to_wstring(error.row) + L" ";
    EXPECT_EQ(bad, L"3 4 5 7 8 ");
    EXPECT_FALSE(load("md,inc,azi\n", description)) << "no station";
}

TEST_F(SurveyTableTest, curvesOfALasFileAreStations) {
    folder.write(L"s.las",
                 "~V\nVERS. 2.0:\nWRAP. NO:\n~W\nNULL. -999:\n~C\nDEPT.FT:\nDEVI.DEG:\nHAZI.DEG:\n"
                 "~A\n0 0 0\n100 -999 5\n1000 30 350\n");
    NORLEX_inclRead_descr description;
    description.angle.header = L"devi";
    description.azimuth.header = L"HAZI";
    NORLEX_well w(db(), names);
    ASSERT_TRUE(w.loadInclFromLAS(folder / L"s.las", description, report, false)) << lastError();
    EXPECT_EQ(stations(), L"0 0 0; 304.8 30 350; ");
    EXPECT_EQ(report.passedOver, 1U);
    description.angle.header = L"none";
    EXPECT_FALSE(w.loadInclFromLAS(folder / L"s.las", description, report, false));
    EXPECT_FALSE(w.loadInclFromLAS(folder / L"absent.las", description, report, false));
}
