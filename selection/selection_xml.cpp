// Selections as XML.
#include "NORLEX_lastError.h"
#include "NORLEX_query.h"
#include "NORLEX_selection.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/xml_node.h"

#include <cmath>
#include <utility>

namespace {

constexpr std::wstring_view rootName = L"wellDB_selection_parans";
constexpr std::wstring_view selectionName = L"wellDB_selection";

std::wstring spelled(bool value) {
    return value ? L"true" : L"false";
}

std::wstring spelled(double value) {
    return std::isfinite(value) ? sqlText::number(value) : L"0";
}

// The members of a query that are numbers and flags are read by name; a text that is neither makes
// the whole file broken.
class reader {
public:
    explicit reader(const Tts_xml_node& node) : m_node(node) {}

    [[nodiscard]] std::wstring text(std::wstring_view name) const { return m_node.childText(name); }

    double number(std::wstring_view name) {
        const std::wstring given = text(name);
        const auto value = numbers::toDouble(given);
        if (given.empty())
            return 0.0;
        if (!value || !std::isfinite(*value))
            m_ok = refuse(sqlText::sql(L"\"", name, L"\" is \"", given, L"\", not a number"));
        return value.value_or(0.0);
    }

    int integer(std::wstring_view name) {
        const double value = number(name);
        if (value == std::trunc(value) && std::abs(value) < 1e9)
            return static_cast<int>(value);
        m_ok = refuse(sqlText::sql(L"\"", name, L"\" is \"", text(name), L"\", no whole number"));
        return 0;
    }

    bool flag(std::wstring_view name, bool otherwise) {
        const std::wstring given = text(name);
        if (given.empty())
            return otherwise;
        if (given == L"true" || given == L"1")
            return true;
        if (given != L"false" && given != L"0")
            m_ok = refuse(sqlText::sql(L"\"", name, L"\" is \"", given, L"\", not true or false"));
        return false;
    }

    // The entries that `countName` promises.
    std::vector<Tts_xml_node> entries(std::wstring_view name, std::wstring_view countName) {
        auto found = m_node.children(name);
        const int count = integer(countName);
        if (!text(countName).empty() && found.size() != static_cast<std::size_t>(count))
            m_ok = refuse(sqlText::sql(L"\"",
                                       countName,
                                       L"\" says ",
                                       text(countName),
                                       L", but there are ",
                                       std::to_wstring(found.size())));
        return found;
    }

    [[nodiscard]] bool isOK() const { return m_ok; }

private:
    const Tts_xml_node& m_node;
    bool m_ok = true;
};

// The name of a template has no element of its own; the value is not compared with anything there.
void write(Tts_xml_node node, const NORLEX_query& query) {
    const bool isTemplate = query.operationType == NORLEX_filterTypeTemplate;
    node.addChild(L"operationType", std::to_wstring(query.operationType));
    node.addChild(L"operation", std::to_wstring(query.operation));
    node.addChild(L"propName", query.prop.name);
    node.addChild(L"propGroup", query.prop.group);
    node.addChild(L"fldName", query.fldName);
    node.addChild(L"value", isTemplate ? query.templateName : query.value);
    node.addChild(L"caseSensetive", spelled(query.caseSensetive));
    node.addChild(L"propSearchName", query.propSearchName);
    node.addChild(L"propSearchGroup", query.propSearchGroup);
    node.addChild(L"searchFld", query.searchFld);
    node.addChild(L"searchValue", query.searchValue);
    node.addChild(L"fromDepth", spelled(query.fromDepth));
    node.addChild(L"toDepth", spelled(query.toDepth));
    node.addChild(L"propTemplateType", std::to_wstring(query.propTemplateType));
    node.addChild(L"wellInfoType", std::to_wstring(query.wellInfoType));
    node.addChild(L"isLinkAnd", spelled(query.isLinkAnd));
    node.addChild(L"datetimeType", std::to_wstring(query.datetimeType));
    node.addChild(L"datetimeObject", std::to_wstring(query.datetimeObject));
}

bool read(const Tts_xml_node& node, NORLEX_query& query) {
    reader in(node);
    query.operationType = static_cast<NORLEX_filterType>(in.integer(L"operationType"));
    query.operation = static_cast<NORLEX_filterOperation>(in.integer(L"operation"));
    query.prop = {in.text(L"propName"), in.text(L"propGroup")};
    query.fldName = in.text(L"fldName");
    query.value = in.text(L"value");
    if (query.operationType == NORLEX_filterTypeTemplate)
        query.templateName = std::exchange(query.value, {});
    query.caseSensetive = in.flag(L"caseSensetive", true);
    query.propSearchName = in.text(L"propSearchName");
    query.propSearchGroup = in.text(L"propSearchGroup");
    query.searchFld = in.text(L"searchFld");
    query.searchValue = in.text(L"searchValue");
    query.fromDepth = in.number(L"fromDepth");
    query.toDepth = in.number(L"toDepth");
    query.propTemplateType = in.integer(L"propTemplateType");
    query.wellInfoType = static_cast<NORLEX_filterWellType>(in.integer(L"wellInfoType"));
    query.isLinkAnd = in.flag(L"isLinkAnd", true);
    query.datetimeType = in.integer(L"datetimeType");
    query.datetimeObject = in.integer(L"datetimeObject");
    return in.isOK();
}

void write(Tts_xml_node node, const NORLEX_selectionFilter& filter) {
    node.addChild(L"name", filter.name);
    node.addChild(L"numQuery", std::to_wstring(filter.queries.size()));
    for (const auto& query : filter.queries)
        write(node.addChild(L"query"), query);
}

bool read(const Tts_xml_node& node, NORLEX_selectionFilter& filter) {
    reader in(node);
    filter.name = in.text(L"name");
    for (const auto& entry : in.entries(L"query", L"numQuery"))
        if (!read(entry, filter.queries.emplace_back()))
            return false;
    return in.isOK();
}

// Hand lists: an element of the name, in it the count and entries of the same name.
struct handList {
    std::wstring_view name;
    std::wstring_view countName;
};
constexpr handList added{L"addWell", L"numAddWells"};
constexpr handList removed{L"delWell", L"numDelWells"};
constexpr handList geometry{L"geomWell", L"numGeomWells"};

void write(Tts_xml_node node,
           const handList& list,
           const std::vector<NORLEX_wellDescription>& wells) {
    Tts_xml_node outer = node.addChild(list.name);
    outer.addChild(list.countName, std::to_wstring(wells.size()));
    for (const auto& well : wells) {
        Tts_xml_node entry = outer.addChild(list.name);
        entry.addChild(L"name", well.name);
        entry.addChild(L"field", well.field);
        entry.addChild(L"object", well.workObject);
    }
}

bool read(const Tts_xml_node& node,
          const handList& list,
          std::vector<NORLEX_wellDescription>& wells) {
    const Tts_xml_node outer = node.child(list.name);
    reader in(outer);
    for (const auto& entry : in.entries(list.name, list.countName))
        wells.push_back(
            {entry.childText(L"object"), entry.childText(L"field"), entry.childText(L"name"), 0});
    return in.isOK();
}

} // namespace

bool NORLEX_selection::save(const std::wstring& path) const {
    Tts_xml_node root = Tts_xml_node::create(rootName);
    return save(&root) && root.save(path);
}

bool NORLEX_selection::save(Tts_xml_node* node) const {
    if (node == nullptr || node->isEmpty())
        return refuse(L"there is no element to save the selection \"" + m_name + L"\" in");
    Tts_xml_node own = node->addChild(selectionName);
    own.addChild(L"name", m_name);
    own.addChild(L"custom", spelled(m_isCustom));
    own.addChild(L"isInverted", spelled(m_isInverted));
    own.addChild(L"numFilters", std::to_wstring(m_filters.size()));
    write(own.addChild(L"filter"), m_filters[m_active]);
    for (std::size_t i = 0; i < m_filters.size(); ++i)
        if (i != m_active)
            write(own.addChild(L"filter"), m_filters[i]);
    write(own, added, m_added);
    write(own, removed, m_deleted);
    write(own, geometry, m_geometry);
    return true;
}

bool NORLEX_selection::load(const std::wstring& path) {
    Tts_xml_node root = Tts_xml_node::load(path, rootName);
    if (root.isEmpty())
        return false;
    if (load(&root))
        return true;
    return refuse(L"\"" + path + L"\" is not loaded: " + NORLEX_lastError());
}

bool NORLEX_selection::load(Tts_xml_node* node) {
    const Tts_xml_node own = node == nullptr                 ? Tts_xml_node()
                             : node->name() == selectionName ? *node
                                                             : node->child(selectionName);
    if (own.isEmpty())
        return refuse(sqlText::sql(L"there is no element \"", selectionName, L"\""));
    reader in(own);
    NORLEX_selection loaded(in.text(L"name"), m_container, in.flag(L"custom", false));
    loaded.m_isInverted = in.flag(L"isInverted", false);
    loaded.m_filters.clear();
    for (const auto& entry : in.entries(L"filter", L"numFilters"))
        if (!read(entry, loaded.m_filters.emplace_back()))
            return false;
    if (!in.isOK() || !read(own, added, loaded.m_added) || !read(own, removed, loaded.m_deleted)
        || !read(own, geometry, loaded.m_geometry))
        return false;
    if (loaded.m_filters.empty())
        loaded.m_filters.emplace_back();
    *this = std::move(loaded);
    return true;
}
