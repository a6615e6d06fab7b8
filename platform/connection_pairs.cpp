#include "platform/connection_pairs.h"

#include "platform/ascii.h"
#include "platform/numbers.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace connectionPairs {

namespace {

constexpr std::string_view special = ";{}";

// What stands between the braces at the start of `text`, and where the text behind them begins.
struct braced {
    std::string value;
    std::size_t end = 0;
};

std::optional<braced> takeBraced(std::string_view text) {
    if (!text.starts_with('{'))
        return std::nullopt;
    braced out;
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] == '}' && (at + 1 == text.size() || text[at + 1] != '}')) {
            out.end = at + 1;
            return out;
        }
        if (text[at] == '}')
            ++at;
        out.value += text[at];
    }
    return std::nullopt;
}

constexpr std::string_view secretName = "PWD=";

// What braces around all of the text quote; nothing where they belong to the password itself, which
// did not need them.
std::optional<std::string> unquoted(std::string_view text) {
    auto inside = takeBraced(text);
    if (!inside || inside->end != text.size()
        || inside->value.find_first_of(special) == std::string::npos)
        return std::nullopt;
    return std::move(inside->value);
}

std::string password(std::string_view text) {
    if (text.ends_with(';'))
        text.remove_suffix(1);
    return unquoted(text).value_or(std::string(text));
}

// Where the last pair named PWD begins, unless it stands within the braces of one before; the end
// of the text when there is none.
std::size_t passwordAt(std::string_view text) {
    std::size_t last = text.size();
    for (std::size_t at = text.find(secretName); at < text.size();
         at = text.find(secretName, at + 1)) {
        if (at > 0 && text[at - 1] != ';')
            continue;
        last = at;
        std::string_view value = text.substr(at + secretName.size());
        if (value.ends_with(';'))
            value.remove_suffix(1);
        if (unquoted(value))
            break;
    }
    return last;
}

} // namespace

std::vector<pair> parse(std::string_view text) {
    std::vector<pair> out;
    const std::size_t secret = passwordAt(text);
    std::string_view rest = text.substr(0, secret);
    while (!rest.empty()) {
        const auto equals = rest.find_first_of("=;");
        if (equals == std::string_view::npos || rest[equals] == ';') {
            rest = equals == std::string_view::npos ? std::string_view() : rest.substr(equals + 1);
            continue; // an empty pair, or a word without a value
        }
        const std::string name(numbers::trimmed(rest.substr(0, equals)));
        rest.remove_prefix(equals + 1);
        rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
        const auto inside = takeBraced(rest);
        const auto end = std::min(rest.find(';', inside ? inside->end : 0), rest.size());
        out.push_back(
            {name, inside ? inside->value : std::string(numbers::trimmed(rest.substr(0, end)))});
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (secret < text.size())
        out.push_back({"PWD", password(text.substr(secret + secretName.size()))});
    return out;
}

const std::string* find(const std::vector<pair>& pairs, std::string_view name) {
    const auto found =
        std::ranges::find_if(pairs, [&](const pair& one) { return ascii::equal(one.name, name); });
    return found == pairs.end() ? nullptr : &found->value;
}

std::string quoted(std::string_view value) {
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                       "0123456789_-./:\\@,";
    if (value.find_first_not_of(plain) == std::string_view::npos)
        return std::string(value);
    std::string out = "{";
    for (const char c : value)
        out.append(c == '}' ? 2 : 1, c);
    return out + '}';
}

std::string join(const std::vector<pair>& pairs) {
    std::string out;
    for (const auto& [name, value] : pairs)
        out += name + '=' + quoted(value) + ';';
    return out;
}

} // namespace connectionPairs
