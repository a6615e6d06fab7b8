#include "cli/names.h"

#include "cli/output.h"

#include "NORLEX_well.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::size_t candidatesShown = 5;

// Names are stored without apostrophes.
std::wstring plain(std::wstring_view name) {
    std::wstring out(name);
    std::erase(out, L'\'');
    return out;
}

// A slash inside a part, and the backslashes before any slash, each take a backslash.
std::wstring escaped(std::wstring_view part, bool isLast) {
    std::wstring out;
    std::size_t run = 0; // backslashes that end `out`
    for (const wchar_t c : part) {
        if (c == L'/')
            out.append(run + 1, L'\\');
        out += c;
        run = c == L'\\' ? run + 1 : 0;
    }
    if (!isLast)
        out.append(run, L'\\');
    return out;
}

std::wstring joined(const std::vector<std::wstring>& parts) {
    std::wstring out;
    for (std::size_t i = 0; i < parts.size(); ++i)
        out += (i == 0 ? L"" : L"/") + escaped(parts[i], i + 1 == parts.size());
    return out;
}

// "A, B, C and 12 more".
std::wstring listed(const std::vector<std::wstring>& candidates) {
    std::wstring out;
    const std::size_t shown = std::min(candidates.size(), candidatesShown);
    for (std::size_t i = 0; i < shown; ++i)
        out += (i == 0 ? L"" : L", ") + candidates[i];
    if (candidates.size() > shown)
        out += L" and " + std::to_wstring(candidates.size() - shown) + L" more";
    return out;
}

template <typename Description>
std::vector<std::wstring> spelledAll(const std::vector<Description>& all) {
    std::vector<std::wstring> out;
    out.reserve(all.size());
    for (const auto& one : all)
        out.push_back(names::spelled(one));
    return out;
}

std::wstring quote(std::wstring_view reference) {
    return L"\"" + std::wstring(reference) + L"\"";
}

// Refuses a name that finds nothing or too much, and says what there is.
void refuseName(const std::wstring& what,
                const std::vector<std::wstring>& matches,
                const std::vector<std::wstring>& all) {
    if (!matches.empty())
        output::say(what + L" is not unique; say which: " + listed(matches));
    else if (all.empty())
        output::say(what + L" was not found: there is none yet");
    else
        output::say(what + L" was not found; there are: " + listed(all));
}

void refuseParts(std::wstring_view what, std::wstring_view reference, std::wstring_view form) {
    output::say(std::wstring(what) + L" " + quote(reference) + L" is not of the form "
                + std::wstring(form) + L" or NAME; a slash inside a name is written \\/");
}

} // namespace

namespace names {

std::vector<std::wstring> split(std::wstring_view reference) {
    std::vector<std::wstring> parts(1);
    std::size_t run = 0; // backslashes just taken
    for (const wchar_t c : reference) {
        if (c == L'/') {
            parts.back().resize(parts.back().size() - (run + 1) / 2);
            if (run % 2 == 0)
                parts.emplace_back();
            else
                parts.back() += c;
        } else {
            parts.back() += c;
        }
        run = c == L'\\' ? run + 1 : 0;
    }
    return parts;
}

std::wstring spelled(const NORLEX_wellDescription& well) {
    return joined({well.workObject, well.field, well.name});
}

std::wstring spelled(const NORLEX_propDescription& property) {
    return joined({property.group, property.name});
}

std::optional<NORLEX_wellDescription> findWell(odbc_database* db, std::wstring_view reference) {
    const auto parts = split(reference);
    if (parts.size() != 1 && parts.size() != 3) {
        refuseParts(L"the well", reference, L"OBJECT/FIELD/NAME");
        return std::nullopt;
    }
    if (parts.size() == 3) {
        const std::uint32_t id = NORLEX_well::getID(db, {parts[0], parts[1], parts[2]});
        if (id != 0)
            return NORLEX_well::getDescription(db, id);
    }
    std::vector<NORLEX_wellDescription> all;
    NORLEX_well::getWellList(db, all);
    std::vector<NORLEX_wellDescription> matches;
    for (const auto& well : all)
        if (parts.size() == 1 && well.name == plain(parts[0]))
            matches.push_back(well);
    if (matches.size() == 1)
        return matches.front();
    refuseName(L"the well " + quote(reference), spelledAll(matches), spelledAll(all));
    return std::nullopt;
}

std::optional<NORLEX_propDescription> findProperty(const NORLEX_well& well,
                                                   std::wstring_view reference) {
    const auto parts = split(reference);
    if (parts.size() > 2) {
        refuseParts(L"the property", reference, L"GROUP/NAME");
        return std::nullopt;
    }
    std::vector<NORLEX_propDescription> all;
    well.getPropertyList(all);
    std::vector<NORLEX_propDescription> matches;
    for (const auto& property : all)
        if (property.name == plain(parts.back())
            && (parts.size() == 1 || property.group == plain(parts.front())))
            matches.push_back(property);
    if (matches.size() == 1)
        return matches.front();
    refuseName(L"the property " + quote(reference) + L" of the well "
                   + spelled(well.getDescription()),
               spelledAll(matches),
               spelledAll(all));
    return std::nullopt;
}

std::optional<NORLEX_wellDescription> newWell(std::wstring_view reference,
                                              const NORLEX_wellDescription& base) {
    auto parts = split(reference);
    if (parts.size() == 1)
        return NORLEX_wellDescription{base.workObject, base.field, parts[0], 0};
    if (parts.size() == 3)
        return NORLEX_wellDescription{parts[0], parts[1], parts[2], 0};
    refuseParts(L"the well", reference, L"OBJECT/FIELD/NAME");
    return std::nullopt;
}

std::optional<NORLEX_propDescription> newProperty(std::wstring_view reference) {
    const auto parts = split(reference);
    if (parts.size() == 1)
        return NORLEX_propDescription(parts[0], {});
    if (parts.size() == 2)
        return NORLEX_propDescription(parts[1], parts[0]);
    refuseParts(L"the property", reference, L"GROUP/NAME");
    return std::nullopt;
}

} // namespace names
