#include "cli/type_names.h"

#include "cli/text.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

// By value.
constexpr std::array<std::string_view, 12> dataWords{"unknown",
                                                     "marker",
                                                     "interval",
                                                     "column",
                                                     "log",
                                                     "image",
                                                     "border",
                                                     "construction",
                                                     "work construction",
                                                     "series",
                                                     "interval velocity",
                                                     "average velocity"};
constexpr std::array<std::string_view, 7> fieldWords{
    "unknown", "string", "bigstring", "numeric", "link", "vsegei", "boolean"};

std::string_view wordOf(std::span<const std::string_view> words, int value) {
    const auto index = static_cast<std::size_t>(value); // a negative one is large
    return words[index < words.size() ? index : 0];
}

// The value of a word; 0 when it is none.
int valueOf(std::span<const std::string_view> words, const std::wstring& name) {
    std::string word = text::utf8(name);
    std::replace(word.begin(), word.end(), '-', ' ');
    const auto found = std::find(words.begin() + 1, words.end(), word);
    return found == words.end() ? 0 : static_cast<int>(found - words.begin());
}

std::string listed(std::span<const std::string_view> words) {
    std::string list;
    for (const auto word : words.subspan(1)) {
        std::string one(word);
        std::replace(one.begin(), one.end(), ' ', '-');
        list += (list.empty() ? "" : ", ") + one;
    }
    return list;
}

} // namespace

namespace typeNames {

std::string_view of(NORLEX_dataType type) {
    return wordOf(dataWords, type);
}

std::string_view of(NORLEX_fieldType type) {
    return wordOf(fieldWords, type);
}

std::optional<NORLEX_dataType> dataType(const std::wstring& name) {
    auto type = static_cast<NORLEX_dataType>(valueOf(dataWords, name));
    if (type == NORLEX_dataTypeUnknown)
        type = getDataTypeByEnum(name);
    if (type == NORLEX_dataTypeUnknown)
        type = getDataEnumByName(name);
    return type == NORLEX_dataTypeUnknown ? std::nullopt : std::optional(type);
}

std::optional<NORLEX_fieldType> fieldType(const std::wstring& name) {
    auto type = static_cast<NORLEX_fieldType>(valueOf(fieldWords, name));
    if (type == NORLEX_fieldTypeUnknown)
        type = fieldType_getType(name);
    for (std::size_t i = 1; i < fieldWords.size() && type == NORLEX_fieldTypeUnknown; ++i)
        if (fieldType_getUIName(static_cast<NORLEX_fieldType>(i)) == name)
            type = static_cast<NORLEX_fieldType>(i);
    return type == NORLEX_fieldTypeUnknown ? std::nullopt : std::optional(type);
}

std::string dataTypes() {
    return listed(dataWords);
}

std::string fieldTypes() {
    return listed(fieldWords);
}

} // namespace typeNames
