// Every operation that takes a text with every hostile text, beside objects that it must not touch.
#pragma once

#include "NORLEX_correlation.h"
#include "NORLEX_dictionary.h"
#include "NORLEX_propTemplate.h"
#include "NORLEX_well.h"
#include "NORLEX_wellConstruction.h"
#include "NORLEX_wellDrilling.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "tests/support/container_fixture.h"
#include "tests/support/content_snapshot.h"
#include "tests/support/hostile_texts.h"
#include "tests/support/run_figures.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iterator>
#include <optional>

class HostileTextTest : public ContainerTest {
protected:
    // A text as it is read back; nothing where it was refused.
    using stored = std::optional<std::wstring>;

    struct operation {
        const char* name;
        std::wstring (*kept)(std::wstring_view); // what the operation describes to keep of a text
        std::function<stored(const std::wstring&)> run;
        std::size_t leastTaken = 75; // per cent of the texts
    };

    static std::wstring asGiven(std::wstring_view text) { return std::wstring(text); }

    // A well and everything else bear one name, in all their texts.
    static constexpr const wchar_t* target = L"target";
    static inline const NORLEX_wellDescription targetWell{target, target, target, 0};
    static inline const NORLEX_propDescription targetRows{target, target}; // intervals, one record
    static inline const NORLEX_propDescription targetLog{target, L"logs"};
    static inline const NORLEX_propDescription targetCor{target, L"picks"};

    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        // Tens of thousands of changes are not waited for.
        ASSERT_TRUE(db()->is_server() || db()->exec(L"PRAGMA synchronous=OFF"));
        // Half of a pair must not be taken for the sign that stands for it in UTF-8.
        for (const auto* name : {L"sentinel", L"\ufffd", L"a\ufffdb"})
            makeAll(name);
        ASSERT_TRUE(container->setProjection(L"+proj=longlat"));
        m_sentinels = taken();
        ASSERT_GT(m_sentinels.size(), 30U);
        makeAll(target);
        ASSERT_FALSE(HasFatalFailure());
    }

    void TearDown() override {
        if (!IsSkipped() && !HasFatalFailure())
            looksClean();
    }

    // On a server, what an engine may take for something else; paths, numbers, places of a sign
    // inside of a text and very long ones are read on this side of it.
    static std::vector<std::wstring> texts() {
        return testEngine::isServer() ? hostile::ofEngines() : hostile::texts();
    }

    // What else a test's wells have.
    virtual void makeMore(NORLEX_well&&, const std::wstring&) {}

    // No operation may change what was there, write a file beside the container's own, leave a
    // transaction open, or be refused without one line that says why.
    void tryAll(const std::vector<operation>& all) {
        const auto tried = texts();
        for (const auto& one : all) {
            std::size_t count = 0;
            for (const auto& text : tried)
                count += isKept(one, text) ? std::size_t{1} : 0;
            EXPECT_GE(count * 100, tried.size() * one.leastTaken) << one.name;
            EXPECT_EQ(lost(), "") << one.name;
        }
        runFigures::tell("hostile texts tried", tried.size() * all.size());
    }

    // What the objects beside the target's were and are no more, a line each.
    [[nodiscard]] std::string lost() const {
        auto now = taken();
        for (auto& [name, lines] : now) {
            const auto was = m_sentinels.find(name);
            std::vector<std::string> common;
            if (was != m_sentinels.end())
                std::set_intersection(lines.begin(),
                                      lines.end(),
                                      was->second.begin(),
                                      was->second.end(),
                                      std::back_inserter(common));
            lines = std::move(common);
        }
        return contentSnapshot::differences(m_sentinels, now);
    }

    [[nodiscard]] std::unique_ptr<NORLEX_well> well() const {
        return std::make_unique<NORLEX_well>(db(), targetWell);
    }
    [[nodiscard]] std::uint32_t wellId() const { return NORLEX_well::getID(db(), targetWell); }

    static std::string shown(const std::wstring& text) {
        return ts::strconv::toUtf8(text.substr(0, 60));
    }

private:
    [[nodiscard]] bool isKept(const operation& one, const std::wstring& text) {
        refuse(L"");
        const auto read = one.run(text);
        EXPECT_FALSE(db()->in_transaction()) << one.name << ": " << shown(text);
        if (read) {
            EXPECT_TRUE(*read == one.kept(text))
                << one.name << ": " << shown(text) << " came back as " << shown(*read);
            return true;
        }
        const std::wstring& why = NORLEX_lastError();
        EXPECT_NE(why, L"") << one.name << ": " << shown(text);
        EXPECT_EQ(why.find_first_of(L"\r\n\x1b\x85\u2028"), std::wstring::npos)
            << one.name << ": " << shown(why);
        EXPECT_LT(why.size(), 2000U) << one.name << ": " << shown(why);
        return false;
    }

    void looksClean() {
        EXPECT_EQ(cell(L"SELECT count(*) FROM base_version"), L"1");
        std::vector<NORLEX_checkFinding> findings;
        EXPECT_TRUE(container->check(findings)) << lastError();
        EXPECT_TRUE(findings.empty()) << findings.size();
        for (const auto& entry : std::filesystem::directory_iterator(files::native(folder / L"")))
            EXPECT_EQ(entry.path().filename().string().substr(0, 5), "wells") << entry.path();
        EXPECT_FALSE(files::isFile(L"/tmp/welldb-escaped"));
    }

    // All rows and files; the row of the container bears the time of any change.
    [[nodiscard]] contentSnapshot::content taken() const {
        auto all = contentSnapshot::take(*container);
        all.erase(L"base_version");
        std::erase_if(all, [](const auto& table) { return table.second.empty(); });
        for (auto& [name, lines] : all)
            std::sort(lines.begin(), lines.end());
        return all;
    }

    void makeAll(const std::wstring& name) {
        transaction change(db());
        makeObjects(name);
        makeMore(NORLEX_well(db(), {name, name, name, 0}), name);
        ASSERT_TRUE(!HasFatalFailure() && change.commit()) << lastError();
    }

    void makeObjects(const std::wstring& name) {
        const NORLEX_wellDescription names{name, name, name, 0};
        ASSERT_TRUE(NORLEX_well::create(db(), names)) << lastError();
        NORLEX_well made(db(), names);
        ASSERT_TRUE(made.setAttribute(name, name));
        inclData station;
        station.depth = 50;
        ASSERT_TRUE(made.loadInclFromData({inclData{}, station}, true)) << lastError();
        ASSERT_TRUE(made.VDMimport_fromPoints({{L"", -100, -50}, {L"", -200, -90}})) << lastError();
        makeRecords(made, name);
        makeTemplate(made, name);
        makeDictionary(name);
        const NORLEX_propDescription cor{name, L"picks"};
        using correlation::correlation;
        ASSERT_TRUE(correlation::createCorrelationLayer(db(), cor)) << lastError();
        ASSERT_EQ(correlation::createBorderName(db(), cor, name, name), name) << lastError();
        ASSERT_TRUE(correlation::createBorder(db(), cor, names, name, 10)) << lastError();
    }

    void makeRecords(NORLEX_well& made, const std::wstring& name) {
        NORLEX_wellConstruction construction = made.getConstruction();
        NORLEX_wellConstructionElement element;
        element.to_dig = 10;
        element.comment = name;
        ASSERT_TRUE(construction.addElement(element, false)) << lastError();
        NORLEX_wellConstructionWorkElement work;
        work.bot_real = 10;
        work.text = name;
        ASSERT_TRUE(construction.addWorkElement(work, false)) << lastError();
        NORLEX_wellDrilling drilling = made.getDrillingInfo();
        ASSERT_TRUE(
            drilling.addElement({name, name, name, name, 0, 10, name, name, name, 0}, false))
            << lastError();
        ASSERT_TRUE(drilling.setDrillingRig(name)) << lastError();
        ASSERT_TRUE(drilling.addExecutor({name, name}, false)) << lastError();
    }

    void makeTemplate(NORLEX_well& made, const std::wstring& name) {
        ASSERT_TRUE(NORLEX_propTemplate::createFromType(
            db(), NORLEX_dataTypeInterval, name, {name}, {NORLEX_fieldTypeString}, false))
            << lastError();
        const NORLEX_propDescription rows{name, name};
        const auto property = made.createPropertyFromTemplatePtr(name, rows);
        ASSERT_TRUE(property) << lastError();
        const std::vector<std::wstring> values(property->getFields().size(), name);
        ASSERT_TRUE(
            property->createPlastCommit(1, 2, NORLEX_unknownDepth, NORLEX_unknownDepth, values))
            << lastError();
        ASSERT_TRUE(property->setAttribute(name, name)) << lastError();
        ASSERT_TRUE(property->setLink(0, property->getRecords().front().obj_id, name, name));
        ASSERT_TRUE(NORLEX_wellProperty::setComment(db(), property->getID(), name));
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(
            db(), made.getID(), {name, L"logs"}, name, {{1, -1, 5}, {2, -2, 6}}))
            << lastError();
    }

    void makeDictionary(const std::wstring& name) {
        ASSERT_TRUE(NORLEX_dictionary::create(db(), name)) << lastError();
        NORLEX_dictionary dictionary(db(), name);
        ASSERT_TRUE(dictionary.addValue(name, name)) << lastError();
        ASSERT_TRUE(NORLEX_dictionary::createLink(db(), {name, name}, name, name)) << lastError();
        ASSERT_TRUE(makeInfoKey(name)) << lastError();
        ASSERT_TRUE(NORLEX_dictionary::createInfoLink(db(), name, name)) << lastError();
    }

protected:
    // An entry of the passport, with the target's value.
    [[nodiscard]] bool makeInfoKey(const std::wstring& key) const {
        return db()->exec(sqlText::sql(L"INSERT INTO well_info_struct (key, type) VALUES (",
                                       sqlText::quoted(key),
                                       L", 'text')"));
    }

private:
    contentSnapshot::content m_sentinels;
};
