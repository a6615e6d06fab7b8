// Tables read into the velocity-depth model of a well.
#include "tests/exchange/table_fixture.h"
#include "tests/support/every_failure.h"

#include "NORLEX_VDMtable.h"

namespace {

class ModelTableTest : public TableTest {
protected:
    // Points in columns 1 and 2, intervals in columns 1 to 3, without a header.
    static NORLEX_VDMtableOptions plain() {
        NORLEX_VDMtableOptions out;
        out.depth = out.top = column(1);
        out.time = out.bot = column(2);
        out.velocity = column(3);
        out.format.separator = ';';
        out.hasHeader = false;
        return out;
    }

    bool import(const char* text, const NORLEX_VDMtableOptions& options) {
        folder.write(L"shots.csv", text);
        NORLEX_well well(db(), a);
        return well.isOK() && well.VDMimport_fromTable(folder / L"shots.csv", options, report);
    }

    std::string model() {
        NORLEX_well well(db(), a);
        std::vector<vdm_data> points;
        well.getVDM()->getList(points);
        std::string out;
        for (const auto& p : points)
            out += (out.empty() ? "" : " ") + numbers::fixed(p.depth, 1) + ":"
                   + numbers::fixed(p.time, 1);
        return out;
    }

    failing::statements faults;
    NORLEX_tableReport report;
};

} // namespace

// Altitude 100. From 100 down the hole leans 60 degrees, where a metre along it is half a metre
// down.
TEST_F(ModelTableTest, numbersAreWhatTheOptionsSay) {
    inclData lean;
    lean.depth = 100;
    lean.angle = 60;
    ASSERT_TRUE(NORLEX_well(db(), a).loadInclFromData({inclData(), lean}, true)) << lastError();
    struct {
        const char* where;
        const char* text;
        void (*change)(NORLEX_VDMtableOptions&);
        const char* model;
    } const cases[] = {
        {"absolute, two-way ms",
         "-10;30,5\n0;20\n",
         [](auto&) {},
         "100.0:0.0 0.0:-20.0 -10.0:-30.5"},
        {"measured, one-way s",
         "100;0.01\n120;0.02\n",
         [](auto& o) {
             o.values.depths = NORLEX_dataDirectionMeasured;
             o.values.oneWay = o.values.seconds = true;
         },
         "100.0:0.0 0.0:-20.0 -10.0:-40.0"},
        {"by header, in any case",
         "TWT;Depth\n20;0\n",
         [](auto& o) {
             o.hasHeader = true;
             o.depth = {0, L"depth"};
             o.time = {0, L"TWT"};
         },
         "100.0:0.0 0.0:-20.0"},
        {"intervals in time",
         "0;200;2500\n200;500;3000\n",
         [](auto& o) { o.intervals = NORLEX_vdmTypeTime; },
         "100.0:0.0 -150.0:-200.0 -600.0:-500.0"},
        {"intervals of measured depths, one without velocity", // the next one bridges it
         "0;100;2000\n100;200;\n200;300;1000\n",
         [](auto& o) {
             o.intervals = NORLEX_vdmTypeDepth;
             o.values.depths = NORLEX_dataDirectionMeasured;
         },
         "100.0:0.0 0.0:-100.0 -100.0:-300.0"},
    };
    for (const auto& c : cases) {
        auto options = plain();
        c.change(options);
        EXPECT_TRUE(import(c.text, options)) << c.where << ": " << lastError();
        EXPECT_EQ(model(), c.model) << c.where;
    }
    EXPECT_EQ(report.passedOver, 1U);
    EXPECT_EQ(report.taken, 2U);
}

TEST_F(ModelTableTest, badRowsAreTold) {
    struct {
        const char* where;
        const char* text;
        std::optional<NORLEX_vdmType> intervals;
        std::vector<std::uint64_t> rows;
        const char* reason; // of the first
        const char* model;  // of the good rows
    } const cases[] = {
        {"no number",
         "0;20\n-5;inf\n;30\n",
         {},
         {2, 3},
         "the time is \"inf\"",
         "100.0:0.0 0.0:-20.0"},
        {"the lower of two",
         "-9;20\n0;20\n-9;30\n",
         {},
         {1},
         "the two-way time 20 ms",
         "100.0:0.0 0.0:-20.0 -9.0:-30.0"},
        {"above the head",
         "101;1\n\n0;20\n",
         {},
         {1},
         "the absolute depth 101 is above",
         "100.0:0.0 0.0:-20.0"},
        {"velocity",
         "0;10;-5\n0;10;2000\n",
         NORLEX_vdmTypeTime,
         {1},
         "the velocity is -5",
         "100.0:0.0 90.0:-10.0"},
        {"upside down",
         "100;0;2000\n0;0;2000\n-10;0;2000\n",
         NORLEX_vdmTypeDepth,
         {2, 3},
         "the bottom is not below the top",
         "100.0:0.0 0.0:-100.0"},
    };
    for (const auto& c : cases) {
        auto options = plain();
        options.intervals = c.intervals;
        ASSERT_TRUE(NORLEX_well(db(), a).clearVDM());
        EXPECT_FALSE(import(c.text, options)) << c.where;
        EXPECT_EQ(model(), "100.0:0.0") << c.where;
        std::vector<std::uint64_t> rows;
        for (const auto& error : report.errors)
            rows.push_back(error.row);
        EXPECT_EQ(rows, c.rows) << c.where;
        EXPECT_TRUE(ts::strconv::toUtf8(report.errors.at(0).reason).starts_with(c.reason))
            << c.where << ": " << ts::strconv::toUtf8(report.errors[0].reason);
        options.keepGoodRows = true;
        EXPECT_TRUE(import(c.text, options)) << c.where << ": " << lastError();
        EXPECT_EQ(model(), c.model) << c.where;
    }
    auto missing = plain();
    missing.time = {};
    EXPECT_FALSE(import("0;20\n", missing)) << "no column of times";
    EXPECT_FALSE(import("", plain())) << "no rows";
    EXPECT_FALSE(import("0;x\n",
                        [] {
                            auto all = plain();
                            all.keepGoodRows = true;
                            return all;
                        }()))
        << "no good row";
    EXPECT_EQ(model(), "100.0:0.0 0.0:-100.0");
}

TEST_F(ModelTableTest, whateverFailsItStaysAsItWas) {
    ASSERT_TRUE(import("0;10\n", plain())) << lastError();
    const auto run = [&] { return import("0;20\n-10;30\n", plain()); };
    failing::forEveryFailedQuery(*container, faults, "points", run);
    failing::forEveryFailure(*container, faults, "points", run);
    EXPECT_EQ(model(), "100.0:0.0 0.0:-20.0 -10.0:-30.0");
}
