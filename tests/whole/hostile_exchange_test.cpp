// Hostile texts written into files and read back.
#include "tests/whole/hostile_fixture.h"

#include "NORLEX_correlationTable.h"
#include "NORLEX_lasImport.h"
#include "NORLEX_tableExport.h"
#include "NORLEX_tableImport.h"
#include "NORLEX_wellTableImport.h"

#include "platform/numbers.h"

#include <set>

namespace {

using sqlText::plainName;
using names = std::vector<std::wstring>;

// What a quoted cell keeps: CR LF becomes LF.
std::wstring asCell(std::wstring_view text) {
    std::wstring out;
    for (const wchar_t c : text) {
        while (c == L'\n' && out.ends_with(L'\r'))
            out.pop_back();
        out += c;
    }
    return out;
}

std::string cellOf(const std::wstring& text) {
    std::string out = "\"";
    for (const char c : ts::strconv::toUtf8(text))
        out.append(c == '"' ? 2 : 1, c);
    return out + '"';
}

class HostileExchangeTest : public HostileTextTest {
protected:
    // Those that can be stored, without apostrophes, each once.
    static names storable() {
        names out;
        std::set<std::wstring> known;
        for (const auto& text : texts())
            if (text.find(L'\0') == std::wstring::npos && ts::strconv::isText(text)
                && known.insert(plainName(text)).second)
                out.push_back(plainName(text));
        return out;
    }
    // Those that stay what they are in a cell, and fit into a name.
    static names names_() {
        auto out = storable();
        std::erase_if(out, [](const auto& text) {
            return numbers::trimmed(text) != text || text.empty() || asCell(text) != text
                   || text.size() > 200;
        });
        return out;
    }

    [[nodiscard]] names values(const NORLEX_propDescription& prop, std::size_t field) const {
        const auto in = well();
        const auto property = in->openProperty(prop);
        names out;
        for (std::size_t i = 0; property && i < property->getRecords().size(); ++i)
            out.push_back(property->getValue(field, i));
        return out;
    }
};

TEST_F(HostileExchangeTest, valuesComeBackFromTables) {
    const NORLEX_propDescription tops{L"tops", L"G"};
    const auto in = well();
    const auto made = in->createPropertyPtr(NORLEX_dataTypeMarker, tops);
    ASSERT_TRUE(made) << lastError();
    std::vector<NORLEX_bulkRow> rows;
    names kept;
    for (const auto& text : storable()) {
        rows.push_back({.top = static_cast<double>(rows.size()), .values = {text, L""}});
        kept.push_back(asCell(text));
    }
    ASSERT_TRUE(made->prepareBulk(rows)) << lastError();
    using namespace ts::strconv;
    const std::pair<encodings, char> forms[] = {{utf8, ','}, {utf8, ';'}, {utf16le, '\t'}};
    for (const auto& [encoding, separator] : forms) {
        NORLEX_tableExportOptions to;
        to.property = tops;
        to.encoding = encoding;
        to.separator = separator;
        const auto path = folder / L"wells.csv";
        ASSERT_TRUE(NORLEX_exportTable(db(), path, to).ok) << lastError();
        NORLEX_tableImportOptions from;
        from.templateName = L"Маркер";
        from.property = {L"again", std::wstring(1, separator) + std::to_wstring(encoding)};
        from.wellColumn = {1, {}};
        from.depth = {2, {}};
        from.fields = {{L"Название", {4, {}}, {}}};
        from.format = {encoding, separator};
        const auto read = NORLEX_tableImport(db(), from).importFile(path);
        ASSERT_TRUE(read.ok) << separator << ": " << lastError();
        const auto came = values(from.property, 0);
        ASSERT_EQ(came.size(), kept.size()) << separator;
        for (std::size_t i = 0; i < kept.size(); ++i)
            EXPECT_TRUE(came[i] == kept[i])
                << separator << ": " << shown(kept[i]) << " came back as " << shown(came[i]);
    }
    EXPECT_EQ(lost(), "");
    runFigures::tell("hostile texts tried", kept.size() * std::size(forms));
}

TEST_F(HostileExchangeTest, wellsAndTheirAttributesAreMadeOfCells) {
    std::string table;
    names given;
    for (const auto& text : texts())
        if (text.size() < 200'000) {
            table += cellOf(text) + ";" + cellOf(text) + ";" + cellOf(text) + "\n";
            given.push_back(text);
        }
    NORLEX_wellTableOptions options;
    options.name = {1, {}};
    options.field = {2, {}};
    options.workObject = options.fieldName = L"F";
    options.attributes = {{L"key", {3, {}}}};
    options.format = {ts::strconv::utf8, ';'};
    options.hasHeader = false;
    options.keepGoodRows = true;
    const auto read =
        NORLEX_wellTableImport(db(), options).importFile(folder.write(L"wells.csv", table));
    ASSERT_TRUE(read.ok) << lastError();
    EXPECT_EQ(read.report.taken + read.report.badCount, given.size());
    EXPECT_GT(read.created, given.size() * 3 / 4);
    for (const auto& text : given) {
        // blanks and line ends around a cell are no part of a name or an attribute
        const std::wstring kept(
            numbers::trimmed(asCell(ts::strconv::fromUtf8(ts::strconv::toUtf8(text)))));
        const auto name = plainName(kept);
        if (name.empty() || text.find(L'\0') != std::wstring::npos || text.size() > 200)
            continue;
        const NORLEX_wellDescription asked{L"F", name, name, 0};
        EXPECT_TRUE(NORLEX_well::isExist(db(), asked)) << shown(text);
        const NORLEX_well made(db(), asked);
        EXPECT_EQ(made.getName(), name);
        EXPECT_EQ(plainName(made.getAttribute(L"key")), name) << shown(text);
    }
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileExchangeTest, entriesOfDictionariesComeBack) {
    ASSERT_TRUE(NORLEX_dictionary::create(db(), L"from"));
    ASSERT_TRUE(NORLEX_dictionary::create(db(), L"to"));
    NORLEX_dictionary from(db(), L"from"), to(db(), L"to");
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    std::set<std::wstring> codes;
    for (const auto& text : storable())
        if (text.size() < 400'000 && codes.insert(asCell(text)).second)
            pairs.emplace_back(L"c" + text + L"c", text);
    ASSERT_TRUE(from.importFromList(pairs)) << lastError();
    const auto path = folder / L"wells.csv";
    ASSERT_TRUE(from.exportToText(path)) << lastError();
    NORLEX_tableReport report;
    ASSERT_TRUE(to.importFromText(path, {{ts::strconv::utf8, ';'}, false, false}, 1, 2, report))
        << lastError();
    ASSERT_EQ(to.getValueCount(), pairs.size());
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        EXPECT_EQ(to.getValueList()[i].code, asCell(pairs[i].first));
        EXPECT_EQ(to.getValueList()[i].value, asCell(pairs[i].second));
    }
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileExchangeTest, bordersComeBackAsHeaders) {
    namespace store = correlation;
    const auto borders = names_();
    std::vector<store::newPick> picks;
    for (const auto& border : borders)
        picks.push_back({.wellId = wellId(), .border = border, .depth = 1});
    const NORLEX_propDescription from{L"from", L"G"}, to{L"to", L"G"};
    store::pickSums sums;
    ASSERT_TRUE(store::correlation::createCorrelationLayer(db(), from));
    ASSERT_TRUE(
        store::correlation::insertPoints(db(), from, picks, store::onExistingPick::fail, sums))
        << lastError();
    NORLEX_correlationExportOptions out;
    out.correlation = from;
    const auto path = folder / L"wells.csv";
    ASSERT_TRUE(NORLEX_exportCorrelation(db(), path, out).ok) << lastError();
    NORLEX_correlationTableOptions in;
    in.correlation = to;
    in.isWide = true;
    in.format = {ts::strconv::utf8, ','};
    ASSERT_TRUE(NORLEX_importCorrelation(db(), path, in).ok) << lastError();
    names read;
    store::correlation::getBorderList(db(), to, read);
    EXPECT_EQ(read, borders);
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileExchangeTest, fieldsComeBackAsHeaders) {
    const auto in = well();
    const NORLEX_propDescription prop{L"wide", L"G"};
    const auto made = in->createPropertyPtr(NORLEX_dataTypeMarker, prop);
    ASSERT_TRUE(made) << lastError();
    NORLEX_tableImportOptions from;
    for (const auto& name : hostile::parts())
        if (asCell(name) == plainName(name)
            && made->createField(name, NORLEX_fieldTypeString, false))
            from.fields.push_back({made->getFields().back().name, {0, plainName(name)}, {}});
    const std::size_t count = made->getFields().size();
    EXPECT_GT(count, 80U);
    names values;
    for (std::size_t i = 0; i < count; ++i)
        values.push_back(std::to_wstring(i));
    ASSERT_TRUE(made->createPointCommit(1, NORLEX_unknownDepth, values)) << lastError();
    NORLEX_tableExportOptions to;
    to.property = prop;
    const auto path = folder / L"wells.csv";
    ASSERT_TRUE(NORLEX_exportTable(db(), path, to).ok) << lastError();
    from.templateName = L"Маркер";
    from.property = {prop.name, L"H"};
    ASSERT_TRUE(NORLEX_wellProperty::copy(db(),
                                          in->getID(),
                                          prop,
                                          in->getID(),
                                          from.property,
                                          NORLEX_db_prop_merge_skip,
                                          NORLEX_dataDirectionMeasured));
    from.wellColumn = {1, {}};
    from.depth = {2, {}};
    from.format = {ts::strconv::utf8, ','};
    ASSERT_TRUE(NORLEX_tableImport(db(), from).importFile(path).ok) << lastError();
    const auto read = in->openProperty(from.property);
    ASSERT_EQ(read->getRecords().size(), 2U);
    for (std::size_t i = 2; i < count; ++i)
        EXPECT_EQ(read->getValue(i, 1), values[i]) << shown(read->getFields()[i].name);
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileExchangeTest, bytesThatAreNoTextAreReadOrRefused) {
    const auto accept = [&](bool ok, const char* what, const std::string& bytes) {
        EXPECT_TRUE(ok || !NORLEX_lastError().empty()) << what << ": " << bytes.substr(0, 20);
        EXPECT_FALSE(db()->in_transaction());
    };
    for (const auto& bytes : hostile::bytes()) {
        refuse(L"");
        const auto las =
            folder.write(L"wells.las",
                         "~V\nVERS. 2.0:" + bytes + "\n~W\nWELL. W" + bytes + ": " + bytes
                             + "\nNULL. -999:\n~C\nDEPT.M :\n" + bytes + ".m " + bytes + " :d\nB."
                             + bytes + " : " + bytes + "\n~P\nX.Y " + bytes + ":\n~O\n" + bytes
                             + "\n~A\n1 2 3\n2 " + bytes + " 4\n");
        accept(NORLEX_lasImport(db(), {}).importFile(las).ok, "LAS", bytes);
        const auto csv = folder.write(L"wells.csv", bytes + ";" + bytes + "\n");
        NORLEX_wellTableOptions wells;
        wells.name = {1, {}};
        wells.field = {2, {}};
        wells.hasHeader = false;
        for (const auto encoding : {ts::strconv::detect, ts::strconv::utf8, ts::strconv::utf16le}) {
            wells.format = {encoding, ';'};
            accept(NORLEX_wellTableImport(db(), wells).importFile(csv).ok, "wells", bytes);
        }
        NORLEX_dictionary dictionary(db(), target);
        NORLEX_tableReport report;
        accept(dictionary.importFromText(csv, {}, 1, 2, report), "dictionary", bytes);
        const auto in = well();
        accept(
            in->loadInclFromLST(folder.write(L"wells.lst", "=\n=\n1 " + bytes + " 2\n=\n"), true),
            "survey",
            bytes);
    }
    EXPECT_EQ(lost(), "");
}

} // namespace
