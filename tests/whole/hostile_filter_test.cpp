// Hostile texts as what wells are chosen and depths are found by.
#include "tests/whole/hostile_fixture.h"

#include "NORLEX_dataFilter.h"
#include "NORLEX_queryText.h"
#include "NORLEX_selection.h"

namespace {

using sqlText::plainName;
using names = std::vector<std::wstring>;

class HostileFilterTest : public HostileTextTest {
protected:
    static inline const NORLEX_propDescription common{L"common", L"G"};
    static constexpr const wchar_t* number = L"number"; // a well whose value is one

    // Every well has a value: its own name, and "5".
    void SetUp() override {
        HostileTextTest::SetUp();
        if (IsSkipped())
            return;
        const NORLEX_wellDescription other{number, number, number, 0};
        ASSERT_TRUE(NORLEX_well::create(db(), other));
        makeMore(NORLEX_well(db(), other), number);
        ASSERT_EQ(m_values.size(), 5U);
    }
    void makeMore(NORLEX_well&& well, const std::wstring& name) override {
        const auto made = well.createPropertyPtr(NORLEX_dataTypeMarker, common);
        ASSERT_TRUE(made) << lastError();
        const auto value = name == number ? L"5" : name;
        ASSERT_TRUE(made->createPointCommit(1, NORLEX_unknownDepth, {value, value}));
        m_field = made->getFields().front().name;
        m_values[name] = value;
    }

    [[nodiscard]] bool give(const std::wstring& value) {
        const auto in = well();
        if (!in->openProperty(common)->updateValue(0, 0, value))
            return false;
        m_values[target] = plainName(value);
        return true;
    }

    [[nodiscard]] NORLEX_query
    query(NORLEX_filterType type, NORLEX_filterOperation by, const std::wstring& value) const {
        NORLEX_query out;
        out.operationType = type;
        out.operation = by;
        out.prop = common;
        out.fldName = m_field;
        out.value = value;
        return out;
    }

    [[nodiscard]] names found(const std::vector<NORLEX_query>& queries) const {
        NORLEX_selection selection(L"", container->getContDescription());
        for (const auto& one : queries)
            selection.addFilter(one);
        EXPECT_TRUE(selection.rebuildList(*container)) << lastError();
        std::vector<NORLEX_wellDescription> wells;
        selection.getWellList(wells);
        names out;
        for (const auto& one : wells)
            out.push_back(one.name);
        std::ranges::sort(out);
        return out;
    }
    // By a filter of depths; the wells of a selection have no other one.
    [[nodiscard]] names foundByDepths(NORLEX_filterOperation by,
                                      const std::wstring& operand) const {
        TreeNode<filterCondition> tree;
        tree.addChild({by, common, m_field, operand, true, true});
        NORLEX_dataFilter filter({container.get(), [](auto*) {}}, nullptr, &tree);
        std::vector<NORLEX_wellFilterDepths> wells;
        static_cast<void>(filter.getInfoForFilterConditions(wells));
        names out;
        for (const auto& one : wells)
            out.push_back(NORLEX_well::getWellNameByID(
                db(), static_cast<std::uint32_t>(std::wcstoul(one.wellId.c_str(), nullptr, 10))));
        std::ranges::sort(out);
        return out;
    }

    [[nodiscard]] names expected(NORLEX_filterOperation by, const std::wstring& operand) const {
        names out;
        for (const auto& [well, value] : m_values)
            if (matches(by, value, operand))
                out.push_back(well);
        return out;
    }

    [[nodiscard]] static bool
    matches(NORLEX_filterOperation by, const std::wstring& value, const std::wstring& part) {
        switch (by) {
        case NORLEX_filterEqual:
            return value == part;
        case NORLEX_filterNotEqual:
            return value != part;
        case NORLEX_filterContains:
            return value.find(part) != std::wstring::npos;
        case NORLEX_filterNotContains:
            return value.find(part) == std::wstring::npos;
        case NORLEX_filterBeginsWith:
            return value.starts_with(part);
        default:
            return value.ends_with(part);
        }
    }

    std::wstring m_field;
    std::map<std::wstring, std::wstring> m_values; // by well
};

constexpr NORLEX_filterOperation comparisons[] = {NORLEX_filterEqual,
                                                  NORLEX_filterNotEqual,
                                                  NORLEX_filterContains,
                                                  NORLEX_filterNotContains,
                                                  NORLEX_filterBeginsWith,
                                                  NORLEX_filterEndsWith};

bool isStorable(const std::wstring& text) {
    return text.find(L'\0') == std::wstring::npos && ts::strconv::isText(text);
}

std::wstring literalOf(const std::wstring& text) {
    std::wstring out = L"\"";
    for (const wchar_t c : text)
        out.append(c == L'"' ? 2 : 1, c);
    return out + L'"';
}

TEST_F(HostileFilterTest, aValueFindsItsWells) {
    std::size_t tried = 0;
    for (const auto& text : texts()) {
        EXPECT_EQ(give(text), isStorable(text)) << shown(text);
        for (const auto by : comparisons) {
            const auto wells = isStorable(text) ? expected(by, text) : names();
            if (!isStorable(text)
                && (by == NORLEX_filterNotEqual || by == NORLEX_filterNotContains))
                continue;
            EXPECT_EQ(found({query(NORLEX_filterTypeValue, by, text)}), wells)
                << by << ": " << shown(text);
            EXPECT_EQ(foundByDepths(by, text), wells) << by << ": " << shown(text);
            tried += 2;
        }
        // a value that is no number must not keep the others from being compared
        const auto above = found({query(NORLEX_filterTypeValue, NORLEX_filterGreater, L"4")});
        EXPECT_EQ(std::ranges::count(above, number), 1) << shown(text);
    }
    EXPECT_EQ(lost(), "");
    runFigures::tell("hostile texts tried", tried);
}

TEST_F(HostileFilterTest, aQuotedLiteralIsTheTextItself) {
    for (const auto& text : texts()) {
        if (!give(text))
            continue;
        const auto literal = L"G/common." + literalOf(m_field) + L" = " + literalOf(text);
        std::vector<NORLEX_query> queries;
        if (!NORLEX_parseSelectionText(literal, queries)) {
            ADD_FAILURE() << shown(text) << ": " << lastError();
            continue;
        }
        EXPECT_EQ(queries.front().value, text) << shown(text);
        EXPECT_EQ(found(queries), expected(NORLEX_filterEqual, text)) << shown(text);
        std::vector<NORLEX_query> again;
        EXPECT_TRUE(NORLEX_parseSelectionText(NORLEX_selectionText(queries), again));
        EXPECT_EQ(again, queries) << shown(text);
        TreeNode<filterCondition> tree, copy;
        ASSERT_TRUE(NORLEX_parseFilterText(literal, tree)) << lastError();
        ASSERT_TRUE(NORLEX_parseFilterText(NORLEX_filterText(tree), copy)) << lastError();
        EXPECT_EQ(copy.children().front()->value, tree.children().front()->value) << shown(text);
        EXPECT_EQ(tree.children().front()->value.strParam, text) << shown(text);
    }
    EXPECT_EQ(lost(), "");
}

// A bare text is read as words or refused at a column; nothing else may come of it.
TEST_F(HostileFilterTest, aBareTextIsAQueryOrRefused) {
    for (const auto& text : texts()) {
        std::vector<NORLEX_query> queries;
        TreeNode<filterCondition> tree;
        for (const auto& typed :
             {text, L"exists " + text, L"meta key = " + text, L"meta " + text}) {
            refuse(L"");
            if (NORLEX_parseSelectionText(typed, queries)) {
                static_cast<void>(found(queries));
            } else {
                EXPECT_NE(NORLEX_lastError(), L"") << shown(typed);
            }
        }
        static_cast<void>(NORLEX_parseFilterText(text, tree));
    }
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileFilterTest, namesFindTheirWells) {
    const auto in = well();
    const names only = {target};
    ASSERT_TRUE(makeInfoKey(L"key"));
    for (const auto& text : hostile::parts()) {
        const NORLEX_propDescription prop{text, text};
        if (!in->createProperty(NORLEX_dataTypeMarker, prop))
            continue;
        auto exists = query(NORLEX_filterTypeProperty, NORLEX_filterExists, L"");
        exists.prop = prop;
        EXPECT_EQ(found({exists}), only) << shown(text);
        exists.prop = {L"", plainName(text)};
        EXPECT_EQ(found({exists}), only) << shown(text);
        EXPECT_TRUE(in->removeProperty(prop));

        ASSERT_TRUE(in->setAttribute(text, text)) << shown(text);
        auto meta = query(NORLEX_filterTypeMeta, NORLEX_filterEqual, text);
        meta.fldName = text;
        EXPECT_EQ(found({meta}), only) << shown(text);
        meta.operation = NORLEX_filterExists;
        EXPECT_EQ(found({meta}), only) << shown(text);

        const auto value = sqlText::quoted(text);
        ASSERT_TRUE(db()->exec(
            sqlText::sql(L"INSERT INTO well_info_values (i_id, w_id, value) SELECT i_id, ",
                         sqlText::key(in->getID()),
                         L", ",
                         value,
                         L" FROM well_info_struct WHERE key = 'key'")));
        auto passport = query(NORLEX_filterTypePassport, NORLEX_filterEqual, text);
        passport.fldName = L"key";
        EXPECT_EQ(found({passport}), only) << shown(text);
        ASSERT_TRUE(db()->exec(L"DELETE FROM well_info_values"));
    }
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileFilterTest, selectionsAndFiltersKeepThemInTheirFiles) {
    for (const auto& text : hostile::parts()) {
        NORLEX_selection made(text, container->getContDescription());
        NORLEX_query query;
        query.operationType = NORLEX_filterTypeValue;
        query.prop = {text, text};
        query.fldName = query.value = text;
        made.addFilter(query);
        made.addWell({text, text, text, 0});
        NORLEX_selection read(L"", container->getContDescription());
        TreeNode<filterCondition> tree, copy;
        const filterCondition condition{NORLEX_filterEqual, {text, text}, text, text, true, true};
        tree.addChild(condition);
        NORLEX_dataFilter filter(nullptr, nullptr, &tree);
        NORLEX_dataFilter loaded(nullptr, nullptr, &copy);
        const auto path = folder / L"wells.xml";
        ASSERT_TRUE(made.save(path) && read.load(path)) << lastError();
        ASSERT_TRUE(filter.saveFilter(path) && loaded.loadFilter(path)) << lastError();
        const bool isXml = std::ranges::none_of(text, [](wchar_t c) {
            return (c < L' ' && c != L'\t' && c != L'\n' && c != L'\r')
                   || (c >= 0xD800 && c < 0xE000);
        });
        if (!isXml)
            continue;
        EXPECT_EQ(read.getFilter(0), query) << shown(text);
        EXPECT_EQ(read.name(), text);
        EXPECT_EQ(read.getAddedWells().front().name, text) << shown(text);
        EXPECT_EQ(copy.children().front()->value, condition) << shown(text);
    }
}

} // namespace
