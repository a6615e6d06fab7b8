// Hostile texts in every operation that takes a text.
#include "tests/support/hostile_texts.h"

#include "NORLEX_correlation.h"
#include "NORLEX_dictionary.h"
#include "NORLEX_propTemplate.h"
#include "NORLEX_selection.h"
#include "NORLEX_well.h"
#include "NORLEX_wellConstruction.h"
#include "platform/files.h"
#include "platform/sql_text.h"
#include "tests/support/container_fixture.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>

namespace {

// What was stored, as it is read back; nothing where the text was refused.
using stored = std::optional<std::wstring>;

class HostileTextTest : public ContainerTest {
protected:
    static inline const NORLEX_wellDescription sentinel{L"O", L"F", L"sentinel", 0};
    static inline const NORLEX_propDescription rows{L"rows", L"G"};
    static inline const NORLEX_propDescription cor{L"cor", L"G"};

    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(NORLEX_well::create(db(), sentinel));
        NORLEX_well well(db(), sentinel);
        ASSERT_TRUE(well.createProperty(NORLEX_dataTypeInterval, rows));
        ASSERT_TRUE(NORLEX_propTemplate::createFromType(
            db(), NORLEX_dataTypeMarker, L"tmpl", std::vector<NORLEX_fieldDescr>(), false));
        ASSERT_TRUE(NORLEX_dictionary::create(db(), L"dict"));
        ASSERT_TRUE(correlation::correlation::createCorrelationLayer(db(), cor));
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(db(), 1, {L"log", L"L"}, L"", {{1, -1, 5}}));
        m_content = content();
    }

    // What no operation may change.
    [[nodiscard]] std::wstring content() const {
        return cell(L"SELECT count(*) FROM well_base WHERE name = 'sentinel' AND work_object = 'O' "
                    L"AND field = 'F'")
               + L" " + cell(L"SELECT count(*) FROM base_version") + L" "
               + cell(L"SELECT count(*) FROM property WHERE w_id = 1 AND name = 'rows'") + L" "
               + cell(L"SELECT count(*) FROM base_template WHERE name = 'tmpl'") + L" "
               + cell(L"SELECT count(*) FROM dict_main WHERE name = 'dict'") + L" "
               + cell(L"SELECT count(*) FROM correlation WHERE name = 'cor'");
    }

    [[nodiscard]] stored wellOf(const NORLEX_wellDescription& asked,
                                std::wstring NORLEX_wellDescription::*part) const {
        if (!NORLEX_well::create(db(), asked))
            return std::nullopt;
        return NORLEX_well::getDescription(db(), NORLEX_well::getID(db(), asked)).*part;
    }

    struct operation {
        const char* name;
        bool dropsApostrophes;
        std::function<stored(const std::wstring&)> run;
    };
    [[nodiscard]] std::vector<operation> operations() const;

    std::wstring m_content;
};

std::vector<HostileTextTest::operation> HostileTextTest::operations() const {
    const auto open = [this] { return std::make_unique<NORLEX_well>(db(), sentinel); };
    return {
        {"the name of a well",
         true,
         [this](const auto& t) {
             return wellOf({L"O", L"F", t, 0}, &NORLEX_wellDescription::name);
         }},
        {"a field",
         true,
         [this](const auto& t) {
             return wellOf({L"O", t, L"w", 0}, &NORLEX_wellDescription::field);
         }},
        {"a work object",
         true,
         [this](const auto& t) {
             return wellOf({t, L"F", L"w", 0}, &NORLEX_wellDescription::workObject);
         }},
        {"a well's attribute",
         false,
         [open](const auto& t) -> stored {
             const auto well = open();
             return well->setAttribute(L"key", t) ? stored(well->getAttribute(L"key"))
                                                  : std::nullopt;
         }},
        {"a key of an attribute",
         true,
         [open](const auto& t) -> stored {
             const auto well = open();
             return well->setAttribute(t, L"value") && well->getAttribute(t) == L"value"
                        ? stored(sqlText::plainName(t))
                        : std::nullopt;
         }},
        {"the name of a log",
         true,
         [this, open](const auto& t) -> stored {
             const NORLEX_propDescription log(t, L"logs");
             if (!NORLEX_wellProperty::createLAS(db(), 1, log, L"", {{1, -1, 7}}))
                 return std::nullopt;
             const auto well = open();
             const auto made = well->openProperty(log);
             return made ? stored(made->getName()) : stored(L"not found");
         }},
        {"a group",
         true,
         [this, open](const auto& t) -> stored {
             const NORLEX_propDescription log(L"log", t);
             if (!NORLEX_wellProperty::createLAS(db(), 1, log, L"", {{1, -1, 7}}))
                 return std::nullopt;
             const auto well = open();
             const auto made = well->openProperty(log);
             return made ? stored(made->getGroup()) : stored(L"not found");
         }},
        {"a value",
         true,
         [this, open](const auto& t) -> stored {
             const auto well = open();
             const auto property = well->openProperty(rows);
             NORLEX_bulkRow row;
             row.top = 10;
             row.bot = 11;
             row.values.assign(property->getFields().size(), t);
             if (!property->prepareBulk({row}))
                 return std::nullopt;
             const std::wstring read = property->getValue(0, 0);
             return property->removeGeometry(property->getRecords().front().obj_id)
                        ? stored(read)
                        : stored(L"not removed");
         }},
        {"a template",
         false,
         [this](const auto& t) -> stored {
             if (!NORLEX_propTemplate::createFromType(
                     db(), NORLEX_dataTypeMarker, t, std::vector<NORLEX_fieldDescr>(), false))
                 return std::nullopt;
             return NORLEX_propTemplate(db(), t).getName();
         }},
        {"a field of a template",
         true,
         [this](const auto& t) -> stored {
             NORLEX_propTemplate made(db(), L"tmpl");
             if (!made.addField(t, NORLEX_fieldTypeString))
                 return std::nullopt;
             return made.getFieldList().back().name;
         }},
        {"a dictionary",
         false,
         [this](const auto& t) -> stored {
             if (!NORLEX_dictionary::create(db(), t))
                 return std::nullopt;
             return NORLEX_dictionary::isExist(db(), t) ? stored(t) : stored(L"not found");
         }},
        {"an entry of a dictionary",
         true,
         [this](const auto& t) -> stored {
             NORLEX_dictionary dict(db(), L"dict");
             return dict.addValue(t, t) ? stored(dict.getValueByCode(sqlText::plainName(t)))
                                        : std::nullopt;
         }},
        {"a correlation",
         true,
         [this](const auto& t) -> stored {
             const NORLEX_propDescription made(t, L"G");
             if (!correlation::correlation::createCorrelationLayer(db(), made))
                 return std::nullopt;
             return correlation::correlation::isCorrelationExist(db(), made)
                        ? stored(sqlText::plainName(t))
                        : stored(L"not found");
         }},
        {"a border and its group",
         true,
         [this](const auto& t) -> stored {
             const auto name = correlation::correlation::createBorderName(db(), cor, t, t);
             std::vector<correlation::borderName> all;
             correlation::correlation::getBorderList(db(), cor, all);
             if (name.empty())
                 return std::nullopt;
             const bool isFound =
                 all.back().name == name && all.back().group == sqlText::plainName(t);
             // a taken name gets a number
             return isFound && name.starts_with(sqlText::plainName(t))
                        ? stored(sqlText::plainName(t))
                        : stored(L"not found");
         }},
        {"the projection",
         false,
         [this](const auto& t) -> stored {
             return container->setProjection(t) ? stored(container->getProjection()) : std::nullopt;
         }},
    };
}

TEST_F(HostileTextTest, isStoredOrRefusedByEveryOperation) {
    const auto texts = hostile::texts();
    ASSERT_GE(texts.size(), 300U);
    std::size_t taken = 0;
    const auto all = operations();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto& text = texts[i];
        for (const auto& one : all) {
            const auto read = one.run(text);
            taken += read ? std::size_t{1} : 0;
            if (read) {
                EXPECT_EQ(*read, one.dropsApostrophes ? sqlText::plainName(text) : text)
                    << one.name << ", text " << i << ": "
                    << ts::strconv::toUtf8(text.substr(0, 60));
            } else {
                EXPECT_NE(lastError(), "") << one.name << ", text " << i;
            }
        }
        ASSERT_EQ(content(), m_content) << "text " << i;
    }
    EXPECT_GT(taken, texts.size() * all.size() * 9 / 10);
    EXPECT_EQ(cell(L"SELECT count(*) FROM base_version"), L"1");
    std::vector<NORLEX_checkFinding> findings;
    EXPECT_TRUE(container->check(findings));
    EXPECT_TRUE(findings.empty()) << findings.size();
}

TEST_F(HostileTextTest, everyLogHasAFileOfItsOwnInTheFileDirectory) {
    std::size_t made = 1; // of the sentinel
    for (const auto& text : hostile::texts())
        if (NORLEX_wellProperty::createLAS(db(), 1, {text, text}, L"", {{1, -1, 7}}))
            ++made;
    std::size_t found = 0;
    for (const auto& path : files::listTree(container->getFileContainerPath()))
        found += path.ends_with(L".wpdb") ? std::size_t{1} : 0;
    EXPECT_EQ(found, made);
    EXPECT_GT(made, 250U);
    for (const auto& entry : std::filesystem::directory_iterator(files::native(folder / L"")))
        EXPECT_EQ(entry.path().filename().string().substr(0, 5), "wells");
}

TEST_F(HostileTextTest, selectionsKeepThem) {
    for (const auto& text : hostile::texts()) {
        NORLEX_selection made(text, container->getContDescription());
        NORLEX_query query;
        query.operationType = NORLEX_filterTypeValue;
        query.prop = {text, text};
        query.fldName = query.value = text;
        made.addFilter(query);
        ASSERT_TRUE(made.save(folder / L"s.xml")) << lastError();
        NORLEX_selection read(L"", container->getContDescription());
        ASSERT_TRUE(read.load(folder / L"s.xml")) << lastError();
        const bool isXml = std::ranges::none_of(text, [](wchar_t c) {
            return (c < L' ' && c != L'\t' && c != L'\n' && c != L'\r')
                   || (c >= 0xD800 && c < 0xE000);
        });
        if (isXml) {
            EXPECT_EQ(read.getFilter(0), query) << ts::strconv::toUtf8(text.substr(0, 60));
        }
    }
}

} // namespace
