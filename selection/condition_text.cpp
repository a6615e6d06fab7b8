#include "selection/condition_text.h"

#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "selection/condition_chain.h"
#include "selection/text_match.h"
#include "selection/value_condition.h"

#include <cstddef>
#include <utility>

using namespace sqlText;

namespace conditionText {

namespace {

using node = TreeNode<filterCondition>;

struct form {
    NORLEX_filterOperation operation;
    const wchar_t* number; // the second blank before most signs is part of the text
    const wchar_t* text;
};

constexpr form forms[] = {
    {NORLEX_filterEqual, L"CAST( replace(val.value ,',','.') as REAL)  = ", L"val.value = "},
    {NORLEX_filterNotEqual, L"CAST( replace(val.value ,',','.') as REAL)  <> ", L"val.value <> "},
    {NORLEX_filterGreater, L"CAST( replace(val.value ,',','.') as REAL) > ", L"val.value > "},
    {NORLEX_filterGreaterEqual,
     L"CAST( replace(val.value ,',','.') as REAL)  >= ",
     L"val.value >= "},
    {NORLEX_filterLess, L"CAST( replace(val.value ,',','.') as REAL)  < ", L"val.value < "},
    {NORLEX_filterLessEqual, L"CAST( replace(val.value ,',','.') as REAL)  <= ", L"val.value <= "},
};

std::optional<std::wstring> compared(const form& by, const std::wstring& operand, comparison kind) {
    const auto number =
        kind == comparison::text ? std::nullopt : valueCondition::operandNumber(operand);
    if (number)
        return sql(by.number, *number);
    return kind == comparison::number ? std::nullopt : std::optional(sql(by.text, quoted(operand)));
}

std::optional<std::wstring> test(const filterCondition& condition, comparison kind) {
    const auto operation = static_cast<NORLEX_filterOperation>(condition.operation);
    for (const auto& by : forms)
        if (by.operation == operation)
            return compared(by, condition.strParam, kind);
    switch (operation) {
    case NORLEX_filterExists:
        return L"val.value <> ''";
    case NORLEX_filterNotExists:
        return L"(val.value IS NULL OR val.value = '')";
    case NORLEX_filterEmpty:
        return L"val.value IS NULL";
    case NORLEX_filterNotEmpty:
        return L"val.value IS NOT NULL";
    default:
        break;
    }
    if (auto match = textMatch::condition(L"val.value", operation, condition.strParam);
        !match.empty())
        return match;
    refuse(sql(L"there is no comparison number ",
               key(condition.operation),
               L" of values; 1 to 14 are known"));
    return std::nullopt;
}

bool refuseDepth() {
    return refuse(L"the conditions are nested too deeply for the database: 12 groups inside each "
                  L"other, joined by \"and\" and \"or\" in turn, can always be taken");
}

// A walk through a tree without deep calls. `enter` is called before the children of a group,
// `leave` behind them, `meet` for a condition; each may end the walk by answering false.
template <typename Enter, typename Leave, typename Meet>
bool walk(const node& root, const Enter& enter, const Leave& leave, const Meet& meet) {
    struct place {
        const node* group;
        std::size_t next;
    };
    std::vector<place> path;
    const auto open = [&](const node& group) {
        path.push_back({&group, 0});
        enter();
    };
    open(root);
    while (!path.empty()) {
        auto& [group, next] = path.back();
        if (next == group->children().size()) {
            if (!leave(group->value))
                return false;
            path.pop_back();
            continue;
        }
        const node& child = *group->children()[next++];
        if (!child.value.isEndCondition)
            open(child);
        else if (!meet(child.value))
            return false;
    }
    return true;
}

} // namespace

std::optional<std::wstring> getCondString(const filterCondition& condition, comparison kind) {
    const auto compare = test(condition, kind);
    if (!compare)
        return std::nullopt;
    return sql(L"(property.name = ",
               quotedName(condition.prop.name),
               L" AND property.p_group = ",
               quotedName(condition.prop.group),
               L" AND field.name = ",
               quotedName(condition.field),
               L" AND ",
               *compare,
               L")");
}

std::vector<const filterCondition*> leaves(const node& tree) {
    std::vector<const filterCondition*> out;
    walk(
        tree,
        [] {},
        [](const auto&) { return true; },
        [&](const filterCondition& condition) {
            out.push_back(&condition);
            return true;
        });
    return out;
}

std::optional<std::wstring>
getTreeRequestAsSQLWstring(const node& tree,
                           const std::function<comparison(const filterCondition&)>& kindOf) {
    std::vector<conditionChain::siblings> open;
    conditionChain::operand whole;
    const auto leave = [&](const filterCondition& group) {
        conditionChain::operand closed = std::move(open.back()).whole();
        open.pop_back();
        if (closed.isTooDeep())
            return refuse(
                L"the conditions are nested too deeply: about 20 groups inside each "
                L"other, joined by \"and\" and \"or\" in turn, are what a database takes");
        if (open.empty())
            whole = std::move(closed);
        else
            open.back().add(std::move(closed), group.isAnd);
        return true;
    };
    const auto meet = [&](const filterCondition& condition) {
        auto text = getCondString(condition, kindOf(condition));
        if (!text)
            return false;
        open.back().add(conditionChain::operand(*std::move(text)), condition.isAnd);
        return true;
    };
    if (!walk(
            tree, [&] { open.emplace_back(); }, leave, meet))
        return std::nullopt;
    if (whole.isEmpty()) {
        refuse(L"the filter has no conditions: at least one is needed");
        return std::nullopt;
    }
    const conditionChain::piece text = std::move(whole).spelled();
    if (!text.isTooDeep())
        return sql(L"(", text.text, L")");
    refuseDepth();
    return std::nullopt;
}

} // namespace conditionText
