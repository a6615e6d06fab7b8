#include "platform/string_table.h"
#include "platform/string_table_texts.h"

#include "NORLEX_host.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace stringTable {

namespace {

static_assert(std::is_sorted(entries.begin(), entries.end(), [](const entry& a, const entry& b) {
    return a.id < b.id;
}));

struct settings {
    std::mutex mutex;
    NORLEX_language language = NORLEX_language::russian;
    // A text that the host replaced stands for its own language alone.
    std::map<std::pair<NORLEX_language, unsigned int>, std::wstring> replaced;
};

settings& current() {
    static settings one;
    return one;
}

std::wstring shipped(unsigned int id, NORLEX_language language) {
    const auto found = std::lower_bound(
        entries.begin(), entries.end(), id, [](const entry& e, unsigned int sought) {
            return e.id < sought;
        });
    if (found == entries.end() || found->id != id)
        return {};
    return std::wstring(language == NORLEX_language::english ? found->english : found->russian);
}

} // namespace

std::wstring text(unsigned int id) {
    settings& s = current();
    const std::scoped_lock lock(s.mutex);
    const auto replaced = s.replaced.find({s.language, id});
    return replaced != s.replaced.end() ? replaced->second : shipped(id, s.language);
}

std::wstring text(unsigned int id, const std::wstring& argument) {
    constexpr std::wstring_view place = L"%1";
    std::wstring message = text(id);
    std::size_t at = 0;
    while ((at = message.find(place, at)) != std::wstring::npos) {
        message.replace(at, place.size(), argument);
        at += argument.size(); // what the argument holds is no place
    }
    return message;
}

} // namespace stringTable

void NORLEX_setLanguage(NORLEX_language language) {
    auto& s = stringTable::current();
    const std::scoped_lock lock(s.mutex);
    s.language = language;
}

std::wstring NORLEX_getText(unsigned int id) {
    return stringTable::text(id);
}

void NORLEX_setText(unsigned int id, const std::wstring& text) {
    auto& s = stringTable::current();
    const std::scoped_lock lock(s.mutex);
    s.replaced[{s.language, id}] = text;
}
