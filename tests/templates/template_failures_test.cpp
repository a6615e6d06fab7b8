// Every operation that changes templates, with each of its statements failing in turn.
#include "tests/support/every_failure.h"
#include "tests/templates/template_fixture.h"

#include <functional>

using T = NORLEX_propTemplate;

class TemplateFailures : public TemplateTest {
protected:
    struct operation {
        const char* where;
        std::function<bool()> run;
    };
    // In this order: each finds what those before it leave.
    std::vector<operation> operations() {
        const auto open = [this](const wchar_t* name) { return T(db(), name); };
        return {
            {"create", [this] { return inTransaction([this] { return T::create(db()); }); }},
            {"createType", [this] { return T::createType(db(), NORLEX_dataTypeSerial); }},
            {"createFromType",
             [this] {
                 return T::createFromType(
                     db(), NORLEX_dataTypeMarker, L"own", {L"a"}, {NORLEX_fieldTypeString}, true);
             }},
            {"createFromTemplate",
             [this] {
                 return T::createFromTemplate(
                     db(), L"Маркер", L"copy", {numeric(L"b", L"", 1)}, true);
             }},
            {"addField", [open] { return open(L"Маркер").addField(numeric(L"c", L"C", 1), true); }},
            {"renameField", [open] { return open(L"Маркер").renameField(L"c", L"d"); }},
            {"changeFieldType",
             [open] {
                 return open(L"Маркер").changeFieldType(L"Название", NORLEX_fieldTypeNumeric);
             }},
            {"setFieldPrecision", [open] { return open(L"Маркер").setFieldPrecision(L"d", 4); }},
            {"setFieldShortName", [open] { return open(L"Маркер").setFieldShortName(L"d", L"D"); }},
            {"deleteField", [open] { return open(L"Маркер").deleteField(L"d"); }},
            {"setBasicDrawType",
             [open] { return open(L"Маркер").setBasicDrawType(NORLEX_drawTypeFill, {}); }},
            {"setDataTypeString",
             [open] { return open(L"Интервал").setDataTypeString(L"NORLEX_dataTypeColumn"); }},
            {"rename", [this] { return T::rename(db(), L"Маркер", L"Метка"); }},
            {"remove", [this] { return T::remove(db(), L"Растр"); }},
            {"updateEditTime", [this] { return T::updateEditTime(db(), 1); }},
        };
    }

    // What its caller does for create(), which may leave a part.
    bool inTransaction(const std::function<bool()>& change) {
        if (!container->beginTransaction())
            return false;
        if (change())
            return container->endTransaction();
        container->rollbackTransaction();
        return false;
    }

    void SetUp() override {
        TemplateTest::SetUp();
        if (IsSkipped())
            return;
        fillWells();
        // create() deletes the templates and makes new ones with new keys.
        ASSERT_TRUE(T::create(db()));
        change({L"UPDATE property SET bt_id = (SELECT bt_id FROM base_template WHERE name = "
                L"'Маркер') WHERE bt_id = 1"});
    }

    failing::statements faults;
};

TEST_F(TemplateFailures, failedStatementLeavesEverythingAsItWas) {
    for (const auto& one : operations()) {
        failing::forEveryFailure(*container, faults, one.where, one.run);
        if (std::string_view(one.where) == "create") // gives the properties their template back
            change({L"UPDATE property SET bt_id = (SELECT bt_id FROM base_template WHERE name = "
                    L"'Маркер') WHERE pr_id <> 3"});
    }
}

TEST_F(TemplateFailures, failedQueryDoesNoHarm) {
    for (const auto& one : operations())
        if (std::string_view(one.where) != "create") {
            failing::forEveryFailedQuery(*container, faults, one.where, one.run);
            ASSERT_TRUE(one.run()) << one.where << ": " << lastError();
        }
}

// A taken name is not taken for a free one because it could not be looked up.
TEST_F(TemplateFailures, failedQueryOfARefusalRefuses) {
    const operation refused[] = {
        {"createFromType",
         [this] {
             return T::createFromType(db(), NORLEX_dataTypeLog, L"Растр", list{}, {}, true);
         }},
        {"createFromTemplate",
         [this] { return T::createFromTemplate(db(), L"Растр", L"Маркер", list{}, {}, true); }},
        {"addField",
         [this] { return T(db(), L"Маркер").addField(L"Название", NORLEX_fieldTypeString); }},
        {"renameField",
         [this] { return T(db(), L"Маркер").renameField(L"Название", L"Описание"); }},
        {"deleteField", [this] { return T(db(), L"own").deleteField(L"f"); }},
        {"setDataTypeString",
         [this] { return T(db(), L"Маркер").setDataTypeString(L"NORLEX_dataTypeColumn"); }},
        {"rename", [this] { return T::rename(db(), L"Маркер", L"Растр"); }},
        {"remove", [this] { return T::remove(db(), L"Маркер"); }},
    };
    const auto before = contentSnapshot::take(*container);
    for (const auto& one : refused)
        for (int n = 1; n < 9; ++n) {
            faults.failAt(n, failing::kind::queries);
            EXPECT_FALSE(one.run()) << one.where << ", query " << n << ": " << faults.fault();
            faults.stop();
        }
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
}
