// Hostile texts in LAS files.
#include "tests/whole/hostile_fixture.h"

#include "NORLEX_lasImport.h"
#include "platform/numbers.h"

namespace {

using sqlText::plainName;

class HostileLasTest : public HostileTextTest {
protected:
    // All logs of the group of one well written, and read into another group of it.
    [[nodiscard]] NORLEX_lasImportResult roundTrip(const NORLEX_wellDescription& names) {
        NORLEX_well of(db(), names);
        std::vector<std::wstring> logs;
        of.getPropertyForGroup(L"A", logs);
        std::vector<std::unique_ptr<NORLEX_wellProperty>> opened;
        std::vector<NORLEX_wellProperty*> list;
        for (const auto& log : logs)
            list.push_back(opened.emplace_back(of.openProperty({log, L"A"})).get());
        const auto path = folder / L"wells.las";
        EXPECT_TRUE(of.exportLASExact(path, list)) << lastError();
        NORLEX_lasImportOptions options;
        options.workObject = names.workObject;
        options.group = L"B";
        return NORLEX_lasImport(db(), options).importFile(path);
    }
};

TEST_F(HostileLasTest, namesAndUnitsOfLogsComeBack) {
    const auto in = well();
    std::vector<std::wstring> logs;
    for (const auto& text : texts())
        if (NORLEX_wellProperty::createLAS(
                db(), in->getID(), {text, L"A"}, text.substr(0, 1000), {{1, -1, 7}})) {
            logs.push_back(plainName(text));
            static_cast<void>(in->openProperty({text, L"A"})->setAttribute(L"UNITS", text));
        }
    EXPECT_GT(logs.size(), texts().size() * 3 / 4);
    const auto read = roundTrip(targetWell);
    ASSERT_TRUE(read.ok) << ts::strconv::toUtf8(read.error);
    EXPECT_EQ(read.created, logs.size());
    EXPECT_EQ(read.skippedCount, 0U);
    for (const auto& log : logs) {
        const auto was = in->openProperty({log, L"A"});
        const auto is = in->openProperty({log, L"B"});
        if (!is) {
            ADD_FAILURE() << shown(log);
            continue;
        }
        auto units = was->getAttribute(L"UNITS");
        for (wchar_t& c : units)
            if (std::wstring_view(L" \t\r\n:~").find(c) != std::wstring::npos)
                c = L'_';
        EXPECT_EQ(is->getAttribute(L"UNITS"), numbers::trimmed(units)) << shown(log);
        std::vector<NORLEX_logSample> samples;
        EXPECT_TRUE(is->getSamples(samples) && samples.size() == 1 && samples.front().value == 7);
    }
    EXPECT_EQ(lost(), "");
    runFigures::tell("hostile texts tried", logs.size() * 2);
}

TEST_F(HostileLasTest, namesOfWellsComeBack) {
    for (const auto& text : hostile::parts()) {
        const NORLEX_wellDescription names{L"las", text, text, 0};
        if (!NORLEX_well::create(db(), names))
            continue;
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(
            db(), NORLEX_well::getID(db(), names), {L"log", L"A"}, L"", {{1, -1, 7}}));
        const auto read = roundTrip(names);
        EXPECT_TRUE(read.ok) << shown(text) << ": " << ts::strconv::toUtf8(read.error);
        EXPECT_EQ(read.well.name, plainName(text));
        EXPECT_EQ(read.well.field, plainName(text)) << shown(text);
        EXPECT_FALSE(read.wellCreated) << shown(text);
        ASSERT_TRUE(NORLEX_well::remove(db(), names));
    }
    EXPECT_EQ(lost(), "");
}

// Texts in every place of a header: the file is read, its logs lie in the file directory.
TEST_F(HostileLasTest, headersAreReadOrRefused) {
    for (const auto& text : hostile::parts()) {
        const auto bytes = ts::strconv::toUtf8(text);
        refuse(L"");
        const auto path = folder.write(
            L"wells.las",
            "~V\nVERS. 2.0:\n~W\nWELL. " + bytes + ": " + bytes + "\nFLD. " + bytes
                + ":\n~C\nDEPT.M :\nA" + bytes + "." + bytes + " " + bytes + " : " + bytes
                + "\n~P\n" + bytes + "." + bytes + " " + bytes + ":\n~O\n" + bytes + "\nWELL NAME "
                + bytes + "\nCURVE 1 A NAME " + bytes + "\n~A\n1 2\n2 3\n");
        NORLEX_lasImportOptions options;
        options.workObject = L"las";
        options.onExisting = NORLEX_onExisting::replace;
        const auto read = NORLEX_lasImport(db(), options).importFile(path);
        EXPECT_TRUE(read.ok || !read.error.empty()) << shown(text);
        EXPECT_EQ(read.error.find_first_of(L"\r\n"), std::wstring::npos) << shown(text);
        EXPECT_FALSE(db()->in_transaction()) << shown(text);
    }
    EXPECT_EQ(lost(), "");
}

} // namespace
