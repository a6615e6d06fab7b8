// Stratigraphic columns of wells.
#include "NORLEX_dictionary.h"
#include "NORLEX_propTemplate.h"
#include "globalEventObserver.h"
#include "tests/strat/small_chart.h"
#include "tests/support/every_failure.h"
#include "tests/wells/well_fixture.h"

#include <functional>

using ts::strconv::fromUtf8;
using ts::strconv::toUtf8;

namespace {

const NORLEX_propDescription ages(L"ages", L"G");
const NORLEX_propDescription layer(L"layer", L"G");
const std::wstring name = L"Название";
const std::wstring text = L"Описание";

class StratoLayerTest : public WellTest {
protected:
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(well().setAltitude(100));
        options.source = ages;
        options.field = text;
        options.result = layer;
        options.chart = std::make_shared<strategraphy::statoTable>(
            folder.write(L"small.csv", smallChart::text()));
    }

    // Intervals of ten metres with these descriptions.
    void addAges(const std::vector<const char*>& expressions,
                 NORLEX_dataType type = NORLEX_dataTypeInterval) {
        auto w = well();
        auto property = w.createPropertyPtr(type, ages);
        ASSERT_TRUE(property) << lastError();
        std::vector<NORLEX_bulkRow> rows;
        for (const char* expression : expressions) {
            NORLEX_bulkRow row;
            row.top = 10.0 * static_cast<double>(rows.size());
            row.bot = row.top + 10;
            row.values = {L"layer", fromUtf8(expression)};
            rows.push_back(row);
        }
        ASSERT_TRUE(property->prepareBulk(rows)) << lastError();
    }

    // "0..10 (100..90): name|description|akro|system|otdel|subotdel|yarus; …"
    [[nodiscard]] std::string recordsOf(const NORLEX_propDescription& prop) const {
        auto w = well();
        auto property = w.openProperty(prop);
        if (!property)
            return lastError();
        std::string out;
        for (std::size_t i = 0; i < property->getRecords().size(); ++i) {
            const auto& r = property->getRecords()[i];
            const auto metres = [](double depth) { return std::to_string(std::lround(depth)); };
            out += (i == 0 ? "" : "; ") + metres(r.top) + ".." + metres(r.bot) + " ("
                   + metres(r.topAbs) + ".." + metres(r.botAbs) + "): ";
            for (std::size_t f = 0; f < property->getFields().size(); ++f)
                out += (f == 0 ? "" : "|") + toUtf8(property->getValue(f, i));
        }
        return out;
    }

    [[nodiscard]] bool make() const {
        auto w = well();
        return w.makeDefaultStratoLayer(options);
    }

    NORLEX_def_strato_options options;
};

} // namespace

TEST_F(StratoLayerTest, eachIntervalHasItsUnits) {
    addAges({"C1a", "D1a-C1b", " D1+D2 ", "V", "J{1-3}", "X", ""});
    ASSERT_TRUE(make()) << lastError();
    EXPECT_EQ(recordsOf(layer),
              "0..10 (100..90): C1a|||C|C1|C1.1|C1a; "
              "10..20 (90..80): D1a-C1b|||D-C|D1-C1|C1.1-C1.2|D1a-C1b; "
              "20..30 (80..70): D1+D2|||D|D1+D2||; "
              "30..40 (70..60): V||P|V|||; "
              "40..50 (60..50): J{1-3}|||J|J1-J3||; "
              "50..60 (50..40): X||||||; "
              "60..70 (40..30): ||||||");
    auto w = well();
    const auto made = w.openProperty(layer);
    EXPECT_EQ(made->getType(), NORLEX_dataTypeColumn);
    EXPECT_EQ(made->getTemplateName(), L"Стратиграфия");
    EXPECT_EQ(made->getFields()[6].type, NORLEX_fieldTypeString);
    // the template is there now
    options.result = {L"again", L"G"};
    ASSERT_TRUE(make()) << lastError();
    EXPECT_EQ(recordsOf(options.result), recordsOf(layer));
}

TEST_F(StratoLayerTest, levelsAndNamesAreChosen) {
    addAges({"C1a-C1b"}, NORLEX_dataTypeColumn);
    options.asNames = true;
    options.system = false;
    options.subotdel = false;
    options.templateName = L"Ages";
    ASSERT_TRUE(make()) << lastError();
    EXPECT_EQ(recordsOf(layer), "0..10 (100..90): C1a-C1b||||uC1||uC1a-uC1b");
    EXPECT_EQ(NORLEX_propTemplate::getType(db(), L"Ages"), NORLEX_dataTypeColumn);
    EXPECT_FALSE(NORLEX_propTemplate::isExist(db(), L"Стратиграфия"));
}

// A template of a user's own: its fields in another order, one more, and no name.
TEST_F(StratoLayerTest, fieldsOfATemplateAreFoundByName) {
    addAges({"C1a"});
    const std::vector<std::wstring> fields = {L"yarus", L"more", L"otdel", L"system", L"akro"};
    ASSERT_TRUE(NORLEX_propTemplate::createFromType(
        db(),
        NORLEX_dataTypeColumn,
        L"own",
        fields,
        std::vector<NORLEX_fieldType>(fields.size(), NORLEX_fieldTypeBigstring),
        false));
    options.templateName = L"own";
    EXPECT_FALSE(make());
    EXPECT_NE(lastError().find("\"own\" is no column with the text fields akro"),
              std::string::npos);
    NORLEX_propTemplate own(db(), L"own");
    ASSERT_TRUE(own.addField(L"subotdel", NORLEX_fieldTypeString));
    ASSERT_TRUE(own.deleteField(name) && own.deleteField(text));
    ASSERT_TRUE(make()) << lastError();
    EXPECT_EQ(recordsOf(layer), "0..10 (100..90): C1a||C1|C||C1.1");
}

TEST_F(StratoLayerTest, codesAreReadByTheirDictionary) {
    addAges({"7", "D1"});
    ASSERT_TRUE(NORLEX_dictionary::create(db(), L"ages"));
    NORLEX_dictionary codes(db(), L"ages");
    ASSERT_TRUE(codes.addValue(L"7", L"J2"));
    ASSERT_TRUE(codes.addValue(L"D1", L"C1"));
    ASSERT_TRUE(NORLEX_dictionary::createLink(db(), ages, text, L"ages")) << lastError();
    ASSERT_TRUE(make()) << lastError();
    EXPECT_EQ(recordsOf(layer), "0..10 (100..90): 7|||J|J2||; 10..20 (90..80): D1|||D|D1||");
}

TEST_F(StratoLayerTest, anEmptySourceMakesAnEmptyLayer) {
    addAges({});
    ASSERT_TRUE(make()) << lastError();
    EXPECT_EQ(recordsOf(layer), "");
    EXPECT_TRUE(well().isPropertyExist(layer));
}

// The property and the template are made before the field is looked for.
TEST_F(StratoLayerTest, aLayerIsAnnouncedWhenItIsThereAndNotOtherwise) {
    addAges({"C1a"});
    std::vector<std::string> told;
    const auto heard = globalEventObserver::callback(
        [&](const eventMsgDescription& message) { told.push_back(toUtf8(message.property.name)); });
    const auto subscription = std::make_shared<globalEventObserver::callback>(heard);
    globalEventObserver::Instance().subscribe(subscription);
    options.field = L"none";
    EXPECT_FALSE(make());
    EXPECT_TRUE(told.empty());
    options.field = text;
    ASSERT_TRUE(make()) << lastError();
    EXPECT_GE(std::count(told.begin(), told.end(), "layer"), 1);
}

TEST_F(StratoLayerTest, refusalsLeaveTheWellAsItWas) {
    addAges({"C1a"});
    ASSERT_TRUE(well().createProperty(NORLEX_dataTypeMarker, {L"points", L""}));
    struct {
        const char* where;
        std::function<void(NORLEX_def_strato_options&)> change;
        const char* says;
    } const cases[] = {
        {"no source", [](auto& o) { o.source.name = L"none"; }, "has no property G / none"},
        {"points",
         [](auto& o) {
             o.source = {L"points", L""};
         },
         "holds no intervals"},
        {"field", [](auto& o) { o.field = L"age"; }, "has no field \"age\""},
        {"result exists", [](auto& o) { o.result = ages; }, "ages"},
        {"no result",
         [](auto& o) {
             o.result = {L"", L""};
         },
         ""},
        {"no column", [](auto& o) { o.templateName = L"Интервал"; }, "\"Интервал\" is no column"},
        {"no levels", [](auto& o) { o.templateName = L"Колонка"; }, "\"Колонка\" is no column"},
        {"chart",
         [](auto& o) { o.chart = std::make_shared<strategraphy::statoTable>(L"/none/none.csv"); },
         "chart"},
    };
    const auto before = everything();
    const auto templates = NORLEX_propTemplate::getTemplateList(db());
    const auto sound = options;
    for (const auto& c : cases) {
        options = sound;
        c.change(options);
        EXPECT_FALSE(make()) << c.where;
        EXPECT_NE(lastError().find(c.says), std::string::npos) << c.where << ": " << lastError();
        EXPECT_EQ(everything(), before) << c.where;
        EXPECT_EQ(NORLEX_propTemplate::getTemplateList(db()), templates) << c.where;
    }
}

TEST_F(StratoLayerTest, everyFailureUndoesAll) {
    failing::statements faults;
    reopen();
    addAges({"C1a", "D1+D2"});
    const auto run = [&] {
        NORLEX_well of(db(), names);
        return of.isOK() && of.makeDefaultStratoLayer(options);
    };
    failing::forEveryFailedQuery(*container, faults, "a layer", run);
    failing::forEveryFailure(*container, faults, "a layer", run);
}
