#include "selection/filter_xml.h"

#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/xml_node.h"

#include <optional>
#include <utility>
#include <vector>

namespace filterXml {

namespace {

using node = TreeNode<filterCondition>;

const wchar_t* spelled(bool value) {
    return value ? L"true" : L"false";
}

void write(const filterCondition& from, Tts_xml_node& to) {
    to.setAttribute(L"isEndCondition", spelled(from.isEndCondition));
    to.setAttribute(L"isAnd", spelled(from.isAnd));
    to.setAttribute(L"propDescr_group", from.prop.group);
    to.setAttribute(L"propDescr_name", from.prop.name);
    to.setAttribute(L"field", from.field);
    to.setAttribute(L"operation", std::to_wstring(from.operation));
    to.setAttribute(L"strParam", from.strParam);
}

bool refuseValue(const wchar_t* name, const std::wstring& value, const wchar_t* accepted) {
    return refuse(std::wstring(L"\"") + value.substr(0, 80) + L"\" as " + name
                  + L" of a condition: " + accepted + L" is needed");
}

bool readFlag(const Tts_xml_node& from, const wchar_t* name, bool& out) {
    if (!from.hasAttribute(name))
        return true;
    const std::wstring text = from.attribute(name);
    out = text == L"true" || text == L"1";
    return out || text == L"false" || text == L"0" || refuseValue(name, text, L"true or false");
}

bool readOperation(const Tts_xml_node& from, int& out) {
    if (!from.hasAttribute(L"operation"))
        return true;
    const std::wstring text = from.attribute(L"operation");
    const auto number = numbers::toDouble(text);
    if (!number || !(*number >= 0.0 && *number <= 1000.0) || *number != static_cast<int>(*number))
        return refuseValue(L"operation", text, L"a number from 1 to 14");
    out = static_cast<int>(*number);
    return true;
}

std::optional<filterCondition> read(const Tts_xml_node& from) {
    filterCondition out;
    if (!readFlag(from, L"isEndCondition", out.isEndCondition)
        || !readFlag(from, L"isAnd", out.isAnd) || !readOperation(from, out.operation))
        return std::nullopt;
    out.prop = {from.attribute(L"propDescr_name"), from.attribute(L"propDescr_group")};
    out.field = from.attribute(L"field");
    out.strParam = from.attribute(L"strParam");
    return out;
}

} // namespace

// Nodes whose children are still to be written, and below to be read: documents may be nested
// deeper than calls can be.
bool save(const node& tree, const std::wstring& path) {
    Tts_xml_node root = Tts_xml_node::create(L"tree");
    std::vector<std::pair<const node*, Tts_xml_node>> open = {{&tree, root}};
    while (!open.empty()) {
        auto [from, to] = std::move(open.back());
        open.pop_back();
        for (const auto& child : from->children()) {
            Tts_xml_node element = to.addChild(L"node");
            write(child->value, element);
            if (!child->children().empty())
                open.emplace_back(child.get(), std::move(element));
        }
    }
    return root.save(path);
}

bool load(const std::wstring& path, node& tree) {
    const Tts_xml_node root = Tts_xml_node::load(path, L"tree");
    if (root.isEmpty())
        return false;
    node loaded;
    std::vector<std::pair<Tts_xml_node, node*>> open = {{root, &loaded}};
    while (!open.empty()) {
        const auto [from, to] = std::move(open.back());
        open.pop_back();
        for (const auto& element : from.children(L"node")) {
            auto condition = read(element);
            if (!condition)
                return false;
            open.emplace_back(element, &to->addChild(*std::move(condition)));
        }
    }
    tree.takeChildren(loaded);
    return true;
}

} // namespace filterXml
