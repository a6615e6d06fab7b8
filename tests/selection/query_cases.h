// Queries with the wells of SelectionTest that they find.
#pragma once

#include "NORLEX_query.h"

#include <string>
#include <vector>

struct queryCase {
    NORLEX_query query;
    std::wstring wells;
};

class queryCases {
public:
    queryCases() {
        addProperties();
        addValues();
        addEntries();
        addWellData();
        addWindows();
        addTimes();
    }

    [[nodiscard]] const std::vector<queryCase>& all() const { return m_cases; }

private:
    static constexpr const wchar_t* everyWell = L"abcdefgh";

    struct comparison {
        int operation;
        const wchar_t* value;
        const wchar_t* wells;
        bool ignoreCase = false;
    };

    NORLEX_query& add(NORLEX_filterType type, int operation, const std::wstring& wells) {
        queryCase& added = m_cases.emplace_back();
        added.query.operationType = type;
        added.query.operation = static_cast<NORLEX_filterOperation>(operation);
        added.wells = wells;
        return added.query;
    }

    void addProperties() {
        add(NORLEX_filterTypeProperty, 1, L"abcf").prop = {L"Core", L""};
        add(NORLEX_filterTypeProperty, 1, L"abcf").prop = {L"Core", L"of any group"};
        add(NORLEX_filterTypeProperty, 2, L"degh").prop = {L"Core", L""};
        add(NORLEX_filterTypeProperty, 12, L"degh").prop = {L"Core", L""};
        add(NORLEX_filterTypeProperty, 1, L"e").prop = {L"", L"LAS"};
        add(NORLEX_filterTypeProperty, 1, L"").prop = {L"", L""};
        add(NORLEX_filterTypeTemplate, 1, L"abcf").templateName = L"Core";
        add(NORLEX_filterTypeTemplate, 2, L"degh").templateName = L"Core";
        add(NORLEX_filterTypeTemplate, 1, L"").templateName = L"none";
        add(NORLEX_filterTypeTemplate, 1, L"d").propTemplateType = 1; // markers
        add(NORLEX_filterTypeTemplate, 2, L"abcefgh").propTemplateType = 1;
        add(NORLEX_filterTypeGeometry, 1, L"ac");
        add(NORLEX_filterTypeGeometry, 2, L"bdefgh");
    }

    void addField(const wchar_t* field, const std::vector<comparison>& comparisons) {
        for (const auto& one : comparisons) {
            NORLEX_query& query = add(NORLEX_filterTypeValue, one.operation, one.wells);
            query.prop = {L"Core", L"Lab"};
            query.fldName = field;
            query.value = one.value;
            query.caseSensetive = !one.ignoreCase;
        }
    }

    void addValues() {
        addField(L"name",
                 {{1, L"", L"abc"},
                  {2, L"", L"defgh"},
                  {3, L"", L"c"},
                  {4, L"", L"ab"},
                  {5, L"Песок", L"a"},
                  {5, L"ПЕСОК", L""},
                  {5, L"ПЕСОК", L"a", true},
                  {6, L"Песок", L"bc"},
                  {6, L"ПЕСОК", L"bc", true},
                  {11, L"песок", L"b"},
                  {11, L"ПЕСОК", L"ab", true},
                  {12, L"песок", L"acdefgh"},
                  {12, L"ПЕСОК", L"cdefgh", true},
                  {13, L"песок", L"b"},
                  {13, L"ПЕСОК", L"ab", true},
                  {14, L"мелкий", L"b"},
                  {14, L"МЕЛКИЙ", L"b", true},
                  {14, L"%", L""},
                  {11, L"п_сок", L""},
                  {11, L"", L"abc"}});
        // an empty value counts as zero
        addField(L"por",
                 {{7, L"0.1", L"a"},
                  {7, L"0,1", L"a"},
                  {8, L"0.1", L"ab"},
                  {9, L"0.25", L"bc"},
                  {10, L"0.1", L"bc"},
                  {7, L"1; DROP TABLE val", L""},
                  {5, L"0.25", L"a"}});
        // by what the codes stand for
        addField(L"lit",
                 {{5, L"Sandstone", L"a"},
                  {5, L"1", L""},
                  {5, L"Other", L""},
                  {6, L"Sandstone", L"b"},
                  {11, L"0%", L"b"},
                  {11, L"5%", L""},
                  {11, L"CLAY", L"b", true},
                  {12, L"and", L"bcdefgh"},
                  {14, L"%", L"b"},
                  {7, L"-1", L"ab"},
                  {4, L"", L"ab"},
                  {1, L"", L"ab"}});
        addField(L"none", {{1, L"", L""}, {2, L"", everyWell}});
    }

    void
    addKey(NORLEX_filterType type, const wchar_t* key, const std::vector<comparison>& comparisons) {
        for (const auto& one : comparisons) {
            NORLEX_query& query = add(type, one.operation, one.wells);
            query.fldName = key;
            query.value = one.value;
        }
    }

    void addEntries() {
        addKey(NORLEX_filterTypeMeta,
               L"OPERATOR",
               {{1, L"", L"afg"},
                {2, L"", L"bcdeh"},
                {3, L"", L"g"},
                {4, L"", L"af"},
                {5, L"Север", L"f"},
                {6, L"Север", L"ag"},
                {11, L"вер", L"af"},
                {12, L"вер 2", L"fg"},
                {13, L"С", L"f"},
                {14, L"2", L"a"}});
        addKey(NORLEX_filterTypeMeta,
               L"DEPTH",
               {{7, L"7", L"a"}, {8, L"7", L"af"}, {9, L"12,5", L"f"}, {10, L"12.5", L"af"}});
        addKey(NORLEX_filterTypePassport,
               L"Category",
               {{1, L"", L"abc"},
                {2, L"", L"defgh"},
                {3, L"", L"cdefgh"},
                {4, L"", L"ab"},
                {5, L"Exploration", L"a"},
                {6, L"Exploration", L"bcdefgh"},
                {7, L"10", L"b"},
                {8, L"12", L"b"},
                {9, L"12", L"ac"},
                {10, L"12", L"abc"},
                {11, L"plor", L"a"},
                {12, L"plor", L"bcdefgh"},
                {13, L"Exp", L"a"},
                {14, L"tion", L"a"}});
    }

    void addWellData() {
        constexpr const wchar_t* has[] = {
            L"a", L"ab", L"abcdefg", L"g", L"h", L"g", L"a", L"b", L"abc", L"c", L"e"};
        int kind = 1;
        for (const auto* wells : has) {
            std::wstring others = everyWell;
            std::erase_if(others, [&](wchar_t c) {
                return std::wstring_view(wells).find(c) != std::wstring_view::npos;
            });
            add(NORLEX_filterTypeWellInfo, 1, wells).wellInfoType =
                static_cast<NORLEX_filterWellType>(kind);
            add(NORLEX_filterTypeWellInfo, 2, others).wellInfoType =
                static_cast<NORLEX_filterWellType>(kind);
            ++kind;
        }
        add(NORLEX_filterTypeWellInfo, 1, L"").wellInfoType =
            static_cast<NORLEX_filterWellType>(12);
    }

    void addWindow(const NORLEX_propDescription& prop,
                   double from,
                   double to,
                   const wchar_t* wells,
                   int operation = 1) {
        NORLEX_query& query = add(NORLEX_filterTypeWindow, operation, wells);
        query.prop = prop;
        query.fromDepth = from;
        query.toDepth = to;
    }

    void addWindows() {
        const NORLEX_propDescription core(L"Core", L"Lab");
        addWindow(core, -60, -50, L"b");
        addWindow(core, -9, -8, L"a"); // inside an interval
        addWindow(core, -49, -11, L"");
        addWindow(core, -1000, 1000, L"abc");
        addWindow(core, 1000, -1000, L"abc");
        addWindow(core, -60, -50, L"acdefgh", 2);
        addWindow({L"Tops", L""}, -55, -55, L"d");
        addWindow({L"Tops", L""}, -54, 0, L"");
        addWindow({L"GK", L"LAS"}, 85, 95, L"e");
        addWindow({L"GK", L"LAS"}, 82, 88, L""); // between two samples
        addWindow({L"GK", L"LAS"}, 60, 75, L""); // a missing value
        addWindow({L"Кор", L""}, -71, -69, L"e");
        addWindow({L"Кор", L""}, -69, 0, L"");
        addWindow({L"Hole", L""}, -1000, 1000, L"");
        addWindow({L"none", L""}, -1000, 1000, L"");
    }

    NORLEX_query& addTime(const wchar_t* time, int operation, const wchar_t* wells) {
        NORLEX_query& query = add(NORLEX_filterTypeTime, operation, wells);
        query.value = time;
        return query;
    }

    void addTimes() {
        const wchar_t* const newYear = L"2020-01-01 00:00:00";
        addTime(newYear, 5, L"a");
        addTime(newYear, 6, L"bcdefgh");
        addTime(newYear, 7, L"b");
        addTime(newYear, 8, L"ab");
        addTime(newYear, 9, L"cdefgh");
        addTime(newYear, 10, L"acdefgh");
        addTime(newYear, 2, L"bcdefgh");
        addTime(newYear, 7, L"b").datetimeType = 1;
        addTime(newYear, 9, L"acdefgh").datetimeType = 1;
        addTime(L"junk", 9, L"");
        NORLEX_query& changed = addTime(L"2021-05-05", 5, L"a");
        changed.datetimeType = changed.datetimeObject = 1;
        NORLEX_query& before = addTime(L"2021-05-05", 9, L"bcdefg");
        before.datetimeType = before.datetimeObject = 1;
        NORLEX_query& ofCore = addTime(L"2021-05-05", 9, L"bc");
        ofCore.datetimeType = ofCore.datetimeObject = 1;
        ofCore.prop = {L"Core", L"Lab"};
        addTime(newYear, 7, L"").datetimeObject = 1; // all properties were created before
    }

    std::vector<queryCase> m_cases;
};
