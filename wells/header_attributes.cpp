#include "wells/header_attributes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace headerAttributes {

namespace {

constexpr wchar_t separator = L'\x1F';

constexpr std::wstring_view prefix(block of) {
    constexpr std::array<std::wstring_view, 3> prefixes = {L"WELL.", L"PARAM.", L"CURVE."};
    return prefixes[static_cast<std::size_t>(of)];
}

// A separator inside a part would shift the parts behind it.
std::wstring part(std::wstring text) {
    std::replace(text.begin(), text.end(), separator, L' ');
    return text;
}

// Takes the text up to the next separator off the front of `rest`.
std::wstring next(std::wstring_view& rest) {
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::wstring out(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return out;
}

} // namespace

void add(metadata::pairs& attributes, block of, const lasDescription& entry) {
    attributes.emplace_back(std::wstring(prefix(of)) + entry.mnemonic,
                            part(entry.unit) + separator + part(entry.value) + separator
                                + part(entry.description));
}

std::vector<lasDescription> entries(const metadata::pairs& attributes, block of) {
    std::vector<lasDescription> out;
    for (const auto& [key, value] : attributes) {
        if (!key.starts_with(prefix(of)))
            continue;
        std::wstring_view rest = value;
        lasDescription entry;
        entry.mnemonic = key.substr(prefix(of).size());
        entry.unit = next(rest);
        entry.value = next(rest);
        entry.description = rest;
        out.push_back(std::move(entry));
    }
    return out;
}

} // namespace headerAttributes
