#include "NORLEX_curveIdentification.h"

#include "NORLEX_lastError.h"
#include "platform/last_error.h"
#include "platform/strconv.h"
#include "tests/support/curve_catalogue.h"
#include "tests/support/disk.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <set>

using ts::strconv::toUtf8;

namespace {

class CurveIdentificationTest : public testing::Test {
protected:
    void SetUp() override {
        curveCatalogue::make(path,
                             {{7, L"Gr", L"gamma", {L"ГК", L"Sonic", L"o'hara"}},
                              {3, L"SONIC", L"sonic", {L"dt", L"DT"}},
                              {5, L"ПС", L"potential", {}},
                              {9, L"GRS", L"gamma", {}}});
        refuse({});
    }

    [[nodiscard]] static std::wstring
    mnemonics(const std::vector<NORLEX_curveDescription>& curves) {
        std::wstring out;
        for (const auto& curve : curves)
            out += curve.mnemonic + L" ";
        return out;
    }

    // "mnemonic=synonym" of each pair.
    [[nodiscard]] static std::set<std::wstring>
    synonyms(const NORLEX_curveIdentification& catalogue) {
        std::vector<std::pair<std::wstring, std::wstring>> pairs = {{L"left", L"over"}};
        catalogue.getSynonymList(pairs);
        std::set<std::wstring> out;
        for (const auto& [mnemonic, synonym] : pairs)
            out.insert(mnemonic + L"=" + synonym);
        return out;
    }

    temp_folder folder;
    const std::wstring path = folder / L"curves.db";
};

TEST_F(CurveIdentificationTest, mnemonicsIgnoreCaseAndSynonymsDoNot) {
    const NORLEX_curveIdentification catalogue(path);
    ASSERT_TRUE(catalogue.isOK());
    struct {
        const char* where;
        const wchar_t* name;
        const wchar_t* mnemonic;
    } const cases[] = {
        {"as it is", L"Gr", L"Gr"},
        {"in another case", L"gR", L"Gr"},
        {"Cyrillic in another case", L"пС", L"ПС"},
        {"a synonym", L"ГК", L"Gr"},
        {"a synonym in another case", L"гк", L""},
        {"synonyms that differ in case", L"dt", L"SONIC"},
        {"a synonym in a case that there is not", L"Dt", L""},
        {"a mnemonic goes before another curve's synonym", L"Sonic", L"SONIC"},
        {"an apostrophe", L"o'hara", L"Gr"},
        {"an apostrophe that ends a literal", L"' OR '1'='1", L""},
        {"a wildcard", L"G%", L""},
        {"a blank more", L"Gr ", L""},
        {"no name", L"", L""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(catalogue.getCurve(c.name).mnemonic, c.mnemonic) << c.where;
        EXPECT_EQ(catalogue.isSynonym(c.name).mnemonic, c.mnemonic) << c.where;
    }
    const auto curve = catalogue.getCurve(L"ГК");
    EXPECT_EQ(curve.method_id, L"7");
    EXPECT_EQ(curve.common_units + curve.rus_units + curve.comment + curve.type, L"GruGrrGrcgamma");
}

TEST_F(CurveIdentificationTest, listsCurvesAndTypes) {
    const NORLEX_curveIdentification catalogue(path);
    EXPECT_EQ(mnemonics(catalogue.getAllCurves()), L"SONIC ПС Gr GRS "); // by key
    EXPECT_EQ(mnemonics(catalogue.getCurvesFromType(L"gamma")), L"Gr GRS ");
    EXPECT_EQ(mnemonics(catalogue.getCurvesFromType(L"Gamma")), L"");
    EXPECT_EQ(catalogue.getTypeList(),
              (std::vector<std::wstring>{L"gamma", L"potential", L"sonic"}));
    EXPECT_EQ(
        synonyms(catalogue),
        (std::set<std::wstring>{L"Gr=ГК", L"Gr=Sonic", L"Gr=o'hara", L"SONIC=dt", L"SONIC=DT"}));
}

TEST_F(CurveIdentificationTest, synonymsAreAddedChangedAndRemoved) {
    {
        NORLEX_curveIdentification catalogue(path);
        const auto gr = catalogue.getCurve(L"gr");
        ASSERT_TRUE(catalogue.addSynonym(gr, L"гамма'1")) << toUtf8(NORLEX_lastError());
        ASSERT_TRUE(catalogue.addSynonym(gr, L"гк")) << "differs in case";
        ASSERT_TRUE(catalogue.editSynonym(L"dt", L"dt")) << "its own name";
        ASSERT_TRUE(catalogue.editSynonym(L"dt", L"Dt"));
        ASSERT_TRUE(catalogue.delSynonym(L"ГК"));
        ASSERT_TRUE(catalogue.delSynonym(L"o'hara"));
        EXPECT_EQ(catalogue.getCurve(L"ГК").mnemonic, L"");
    }
    EXPECT_EQ(disk::names(folder.path()), disk::list{L"curves.db"}) << "and no journal beside it";
    EXPECT_EQ(
        synonyms(NORLEX_curveIdentification(path)),
        (std::set<std::wstring>{L"Gr=гамма'1", L"Gr=гк", L"Gr=Sonic", L"SONIC=Dt", L"SONIC=DT"}));
}

TEST_F(CurveIdentificationTest, refusalsSayWhyAndChangeNothing) {
    NORLEX_curveIdentification catalogue(path);
    const auto before = synonyms(catalogue);
    const auto gr = catalogue.getCurve(L"gr");
    const auto add = [&](const NORLEX_curveDescription& curve, const wchar_t* name) {
        return [&catalogue, curve, name] { return catalogue.addSynonym(curve, name); };
    };
    const auto edit = [&](const wchar_t* from, const wchar_t* to) {
        return [&catalogue, from, to] { return catalogue.editSynonym(from, to); };
    };
    NORLEX_curveDescription gone = gr;
    gone.method_id = L"8";
    NORLEX_curveDescription forged = gr;
    forged.method_id = L"7, 'x'); --";
    struct {
        const char* where;
        std::function<bool()> change;
        const wchar_t* says;
    } const cases[] = {
        {"no name", add(gr, L""), L"needs a name"},
        {"a blank name", add(gr, L" "), L"needs a name"},
        {"no curve", add({}, L"new"), L"is not in the catalogue"},
        {"a curve that is not there", add(gone, L"new"), L"number \"8\" is not in the catalogue"},
        {"a number that is none", add(forged, L"new"), L"is not in the catalogue"},
        {"a synonym of the same curve", add(gr, L"ГК"), L"\"ГК\" is in the catalogue already"},
        {"another curve's synonym", add(gr, L"dt"), L"already, of the curve SONIC"},
        {"a mnemonic in another case", add(gr, L"sonic"), L"it is the mnemonic SONIC"},
        {"from what is not there", edit(L"Dt", L"new"), L"\"Dt\" is not in the catalogue"},
        {"from a mnemonic", edit(L"SONIC", L"new"), L"\"SONIC\" is not in the catalogue"},
        {"to a synonym", edit(L"dt", L"DT"), L"\"DT\" is in the catalogue already"},
        {"to a mnemonic", edit(L"dt", L"Пс"), L"it is the mnemonic ПС"},
        {"to no name", edit(L"dt", L""), L"needs a name"},
        {"removal of what is not there",
         [&] { return catalogue.delSynonym(L"gr"); },
         L"\"gr\" is not in the catalogue"},
    };
    for (const auto& c : cases) {
        refuse({});
        EXPECT_FALSE(c.change()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.says), std::wstring::npos)
            << c.where << ": " << toUtf8(NORLEX_lastError());
        EXPECT_EQ(synonyms(catalogue), before) << c.where;
    }
}

TEST_F(CurveIdentificationTest, whatCannotBeOpenedIsEmptyAndRefusesChanges) {
    struct {
        const char* where;
        std::wstring path;
        const wchar_t* says;
    } const cases[] = {
        {"no file", folder / L"none.db", L"none.db was not found"},
        {"a folder", folder.path(), L"was not found"},
        {"no database", folder.write(L"text.db", std::string(5000, 'x')), L"not a database"},
    };
    for (const auto& c : cases) {
        refuse({});
        NORLEX_curveIdentification catalogue(c.path);
        EXPECT_FALSE(catalogue.isOK()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.says), std::wstring::npos)
            << c.where << ": " << toUtf8(NORLEX_lastError());
        EXPECT_EQ(catalogue.getCurve(L"GR").method_id, L"") << c.where;
        EXPECT_TRUE(catalogue.getAllCurves().empty() && catalogue.getTypeList().empty()
                    && catalogue.getCurvesFromType(L"gamma").empty() && synonyms(catalogue).empty())
            << c.where;
        NORLEX_curveDescription curve;
        curve.method_id = L"7";
        EXPECT_FALSE(catalogue.addSynonym(curve, L"a") || catalogue.editSynonym(L"dt", L"a")
                     || catalogue.delSynonym(L"dt"))
            << c.where;
        EXPECT_NE(NORLEX_lastError().find(L"is not open"), std::wstring::npos) << c.where;
    }
    EXPECT_EQ(disk::names(folder.path()), (disk::list{L"curves.db", L"text.db"}));
}

TEST_F(CurveIdentificationTest, aReadOnlyCatalogueIsLookedUpInAndNotChanged) {
    const auto bytes = disk::read(path);
    for (const mode_t mode : {0444U, 0666U}) { // of the file; the folder is sealed for both
        chmod(files::native(path).c_str(), mode);
        chmod(files::native(folder.path()).c_str(), 0555);
        constexpr uid_t nobody = 65534; // the superuser may write everything
        const bool isDropped = geteuid() == 0 && seteuid(nobody) == 0;
        {
            NORLEX_curveIdentification catalogue(path);
            EXPECT_TRUE(catalogue.isOK()) << mode << toUtf8(NORLEX_lastError());
            const auto gr = catalogue.getCurve(L"ГК");
            EXPECT_EQ(gr.mnemonic, L"Gr") << mode;
            EXPECT_EQ(catalogue.getAllCurves().size(), 4U) << mode;
            EXPECT_FALSE(catalogue.addSynonym(gr, L"new")) << mode;
            EXPECT_NE(NORLEX_lastError().find(L"curves.db cannot be changed: "), std::wstring::npos)
                << mode << toUtf8(NORLEX_lastError());
            EXPECT_EQ(disk::names(folder.path()), disk::list{L"curves.db"}) << mode;
        }
        ASSERT_TRUE(!isDropped || seteuid(0) == 0);
        chmod(files::native(folder.path()).c_str(), 0755);
        EXPECT_EQ(disk::names(folder.path()), disk::list{L"curves.db"}) << mode;
        EXPECT_EQ(disk::read(path), bytes) << mode;
    }
}

// The names that a look-up could take for two curves are as much a fault as a missing one.
TEST(ShippedCurvesTest, areManyAndUnambiguous) {
    const NORLEX_curveIdentification catalogue;
    ASSERT_TRUE(catalogue.isOK()) << toUtf8(NORLEX_lastError());
    const auto curves = catalogue.getAllCurves();
    EXPECT_GE(curves.size(), 450U);
    std::set<std::wstring> mnemonics;
    std::size_t inTypes = 0;
    for (const auto& curve : curves) {
        EXPECT_TRUE(mnemonics.insert(ts::strconv::lower(curve.mnemonic)).second)
            << toUtf8(curve.mnemonic);
        EXPECT_EQ(curve.common_units.empty(), curve.rus_units.empty()) << toUtf8(curve.mnemonic);
        EXPECT_FALSE(curve.comment.empty()) << toUtf8(curve.mnemonic);
    }
    const auto types = catalogue.getTypeList();
    EXPECT_TRUE(types.size() >= 25 && types.size() <= 40) << types.size();
    for (const auto& type : types)
        inTypes += catalogue.getCurvesFromType(type).size();
    EXPECT_EQ(inTypes, curves.size());

    std::vector<std::pair<std::wstring, std::wstring>> synonyms;
    catalogue.getSynonymList(synonyms);
    std::set<std::wstring> seen;
    for (const auto& [mnemonic, synonym] : synonyms) {
        EXPECT_TRUE(seen.insert(synonym).second) << toUtf8(synonym);
        EXPECT_FALSE(mnemonics.contains(ts::strconv::lower(synonym))) << toUtf8(synonym);
        EXPECT_EQ(catalogue.getCurve(synonym).mnemonic, mnemonic) << toUtf8(synonym);
    }
}

TEST(ShippedCurvesTest, knowTheCommonMethods) {
    const NORLEX_curveIdentification catalogue;
    struct {
        const wchar_t* name;
        const wchar_t* type;
        const wchar_t* unit;
        const wchar_t* rusUnit;
    } const cases[] = {
        {L"gr", L"Гамма-каротаж", L"GAPI", L"ед. API"},
        {L"ГК", L"Гамма-каротаж", L"UR/H", L"мкР/ч"},
        {L"ПС", L"Потенциал самопроизвольной поляризации", L"MV", L"мВ"},
        {L"CAL", L"Кавернометрия", L"IN", L"дюйм"},
        {L"ДС", L"Кавернометрия", L"MM", L"мм"},
        {L"rhob", L"Плотностной каротаж", L"G/C3", L"г/см3"},
        {L"PE", L"Плотностной каротаж", L"B/E", L"барн/электрон"},
        {L"NPHI", L"Нейтронный каротаж", L"V/V", L"доли ед."},
        {L"ННКТ", L"Нейтронный каротаж", L"", L""},
        {L"DT", L"Акустический каротаж", L"US/F", L"мкс/фут"},
        {L"АК", L"Акустический каротаж", L"US/M", L"мкс/м"},
        {L"ILD", L"Индукционный каротаж", L"OHMM", L"ом·м"},
        {L"ИК", L"Индукционный каротаж", L"MS/M", L"мСм/м"},
        {L"LLD", L"Боковой каротаж", L"OHMM", L"ом·м"},
        {L"МКЗ", L"Микрокаротаж", L"OHMM", L"ом·м"},
        {L"ROP", L"Технологические параметры бурения", L"M/H", L"м/ч"},
    };
    for (const auto& c : cases) {
        const auto curve = catalogue.getCurve(c.name);
        EXPECT_EQ(curve.type, c.type) << toUtf8(c.name);
        EXPECT_EQ(curve.common_units, c.unit) << toUtf8(c.name);
        EXPECT_EQ(curve.rus_units, c.rusUnit) << toUtf8(c.name);
    }
}

} // namespace
