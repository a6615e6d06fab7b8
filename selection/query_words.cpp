#include "selection/query_words.h"

#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "selection/selection_words.h"

#include <algorithm>
#include <array>

using namespace sqlText;

namespace queryWords {

namespace {

struct comparison {
    NORLEX_filterOperation operation;
    std::wstring_view words; // signs, or keywords with one blank between them
    bool hasOperand;
};

// Of two that begin alike the longer one comes first.
constexpr std::array comparisons = {
    comparison{NORLEX_filterEmpty, L"is empty", false},
    comparison{NORLEX_filterNotEmpty, L"is not empty", false},
    comparison{NORLEX_filterNotEqual, L"!=", true},
    comparison{NORLEX_filterGreaterEqual, L">=", true},
    comparison{NORLEX_filterLessEqual, L"<=", true},
    comparison{NORLEX_filterNotEqual, L"<>", true},
    comparison{NORLEX_filterEqual, L"=", true},
    comparison{NORLEX_filterGreater, L">", true},
    comparison{NORLEX_filterLess, L"<", true},
    comparison{NORLEX_filterContains, L"contains", true},
    comparison{NORLEX_filterNotContains, L"not contains", true},
    comparison{NORLEX_filterBeginsWith, L"begins with", true},
    comparison{NORLEX_filterEndsWith, L"ends with", true},
};

constexpr std::array<std::wstring_view, 24> keywords = {
    L"and",  L"or",   L"not",      L"exists",   L"is",       L"empty",   L"contains", L"begins",
    L"ends", L"with", L"from",     L"to",       L"ignoring", L"case",    L"property", L"group",
    L"type", L"meta", L"passport", L"template", L"created",  L"changed", L"of",       L"picked"};

// All of the words, or none.
bool takeWords(textScanner& in, std::wstring_view words) {
    const textScanner before = in;
    while (!words.empty()) {
        const std::wstring_view word = words.substr(0, words.find(L' '));
        if (!in.take(word)) {
            in = before;
            return false;
        }
        words.remove_prefix(std::min(words.size(), word.size() + 1));
    }
    return true;
}

bool isSign(std::wstring_view words) {
    return words.find_first_of(L"=<>") != std::wstring_view::npos;
}

bool isBareName(std::wstring_view name) {
    textScanner in(name);
    const bool isWord = !name.empty() && in.take(ts::strconv::lower(name)) && in.isAtEnd();
    const auto isKeyword = [&](const auto& words, auto... member) {
        return std::ranges::find(words, ts::strconv::lower(name), member...) != words.end();
    };
    return isWord && !isKeyword(keywords)
           && !isKeyword(selectionWords::wellData, &selectionWords::wellKind::word);
}

} // namespace

bool readReference(textScanner& in, fieldReference& out) {
    const auto first = in.name(L"a property");
    if (!first)
        return false;
    out.prop = {*first, L""};
    if (in.takeSign(L"/")) {
        const auto name = in.name(L"the name of a property");
        if (!name)
            return false;
        out.prop = {*name, *first};
    }
    out.hasField = in.takeSign(L".");
    if (!out.hasField)
        return true;
    const auto field = in.name(L"the field of a property");
    if (!field)
        return false;
    if (field->empty())
        return in.fail(L"the field before this has an empty name; that of a field is expected");
    out.field = *field;
    return true;
}

bool readComparison(textScanner& in, NORLEX_filterOperation& operation, std::wstring& operand) {
    for (const auto& one : comparisons) {
        if (!(isSign(one.words) ? in.takeSign(one.words) : takeWords(in, one.words)))
            continue;
        operation = one.operation;
        if (!one.hasOperand)
            return true;
        const auto given = in.operand();
        if (!given)
            return false;
        operand = *given;
        return true;
    }
    return in.fail(L"a comparison is expected here: =, !=, >, >=, <, <=, contains, not contains, "
                   L"begins with, ends with, is empty or is not empty");
}

std::wstring spelled(NORLEX_filterOperation operation, std::wstring_view operand) {
    const auto known = std::ranges::find(comparisons, operation, &comparison::operation);
    if (known == comparisons.end())
        return {};
    if (!known->hasOperand)
        return std::wstring(known->words);
    textScanner in(operand);
    const auto read = operand.empty() || in.isQuoteNext() ? std::nullopt : in.operand();
    return sql(known->words, L" ", read == operand ? std::wstring(operand) : inQuotes(operand));
}

std::wstring spelled(const NORLEX_propDescription& prop, std::wstring_view field) {
    return (prop.group.empty() ? std::wstring() : spelledName(prop.group) + L"/")
           + spelledName(prop.name) + (field.empty() ? std::wstring() : L"." + spelledName(field));
}

std::wstring spelledName(std::wstring_view name) {
    return isBareName(name) ? std::wstring(name) : inQuotes(name);
}

std::wstring inQuotes(std::wstring_view text) {
    std::wstring out = L"\"";
    for (const wchar_t c : text) {
        if (c == L'"')
            out += c;
        out += c;
    }
    return out + L"\"";
}

} // namespace queryWords
