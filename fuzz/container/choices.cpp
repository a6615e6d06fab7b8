#include "fuzz/container/choices.h"

#include "NORLEX_logSample.h"
#include "NORLEX_well.h"
#include "NORLEX_wellProperty.h"
#include "platform/numbers.h"
#include "platform/strconv.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace fuzzContainer {

namespace {

const std::array<std::wstring, 4> plainNames = {L"a", L"b", L"GR", L"gr"};
const std::array<std::wstring, 16> hostileNames = {L"",
                                                   L"a'",
                                                   L"'; DROP TABLE well_base; --",
                                                   L"a/b",
                                                   L"..",
                                                   L"gr.wpdb",
                                                   L"a%2Fb",
                                                   L" a ",
                                                   L"CON",
                                                   L"a\nb",
                                                   L"\x1",
                                                   L"Ё",
                                                   L"\"a\";b",
                                                   std::wstring(241, L'n'),
                                                   std::wstring(1, static_cast<wchar_t>(0xD800)),
                                                   std::wstring(L"a\0b", 3)};
const std::array<std::wstring, 20> texts = {
    L"1",     L"2.5",   L"-3,25", L"",        L"a",
    L"b",     L"D2-C1", L"a'b",   L" a ",     L"NaN",
    L"1e999", L"%",     L"a\r\n", L"a;b",     L"\"",
    L"=1+1",  L"~A",    L"日本",  L"D{2-3}+", std::wstring(3000, L'я')};
constexpr std::array<double, 16> oddNumbers = {0.0,
                                               -0.0,
                                               1e-9,
                                               0.004999,
                                               -1.0,
                                               -45.25,
                                               1234567.891,
                                               NORLEX_unknownDepth,
                                               -NORLEX_unknownDepth,
                                               NORLEX_missingValue,
                                               1e300,
                                               5e-324,
                                               -999.25,
                                               std::numeric_limits<double>::quiet_NaN(),
                                               std::numeric_limits<double>::infinity(),
                                               -std::numeric_limits<double>::infinity()};

constexpr std::uint8_t mostly = 208; // of 256

bool isOf(kind wanted, NORLEX_dataType type) {
    switch (wanted) {
    case kind::log:
        return type == NORLEX_dataTypeLog;
    case kind::rows:
        return type == NORLEX_dataTypeMarker || type == NORLEX_dataTypeInterval
               || type == NORLEX_dataTypeColumn;
    default:
        return true;
    }
}

std::uint64_t mixed(std::uint64_t state) {
    state ^= state >> 30U;
    state *= 0xbf58476d1ce4e5b9U;
    state ^= state >> 27U;
    state *= 0x94d049bb133111ebU;
    return state ^ (state >> 31U);
}

} // namespace

choices::choices(std::span<const std::uint8_t> parameters)
    : m_bytes(parameters), m_state(0x9e3779b97f4a7c15U) {
    for (const std::uint8_t byte : parameters)
        m_state = mixed(m_state + byte + 1);
}

void choices::tell(const std::wstring& value) {
    m_told +=
        (m_told.empty() ? L"" : L", ") + (value.size() > 40 ? value.substr(0, 40) + L"…" : value);
}

std::uint8_t choices::byte() {
    if (!m_bytes.empty()) {
        const std::uint8_t first = m_bytes.front();
        m_bytes = m_bytes.subspan(1);
        return first;
    }
    m_state = mixed(m_state + 1);
    return static_cast<std::uint8_t>(m_state);
}

std::size_t choices::below(std::size_t count) {
    const std::size_t chosen = count == 0 ? 0 : byte() % count;
    tell(std::to_wstring(chosen));
    return chosen;
}

std::wstring choices::name() {
    const std::uint8_t chosen = byte();
    const std::wstring& out = chosen < mostly ? plainNames[chosen % plainNames.size()]
                                              : hostileNames[chosen % hostileNames.size()];
    tell(L"\"" + out + L"\"");
    return out;
}

std::wstring choices::text() {
    const std::wstring& out = texts[byte() % texts.size()];
    tell(L"\"" + out + L"\"");
    return out;
}

double choices::number() {
    const std::uint8_t chosen = byte();
    const double out =
        chosen < mostly ? 1.25 * chosen - 20 : oddNumbers[chosen % oddNumbers.size()];
    tell(ts::strconv::fromUtf8(numbers::shortest(out)));
    return out;
}

double choices::depth() {
    const double out = 0.25 * byte();
    tell(ts::strconv::fromUtf8(numbers::shortest(out)));
    return out;
}

NORLEX_wellDescription choices::newWell() {
    const std::wstring object = name(), field = name();
    return {object, field, name(), 0};
}

NORLEX_propDescription choices::newProperty() {
    const std::wstring group = name();
    return {name(), group};
}

NORLEX_wellDescription choices::well(odbc_database* db) {
    const std::uint8_t chosen = byte();
    std::vector<NORLEX_wellDescription> wells;
    NORLEX_well::getWellList(db, wells);
    if (chosen >= mostly || wells.empty())
        return newWell();
    const auto& out = wells[chosen % wells.size()];
    tell(L"well \"" + out.workObject + L"\" \"" + out.field + L"\" \"" + out.name + L"\"");
    return out;
}

NORLEX_propDescription choices::property(const NORLEX_well& well, kind of) {
    const std::uint8_t chosen = byte();
    std::vector<NORLEX_propertyInfo> all, fit;
    well.getPropertyInfoList(all);
    std::ranges::copy_if(
        all, std::back_inserter(fit), [of](const auto& info) { return isOf(of, info.type); });
    const auto& list = fit.empty() ? all : fit;
    if (chosen >= mostly || list.empty())
        return newProperty();
    const auto& out = list[chosen % list.size()].description;
    tell(L"property \"" + out.group + L"\" \"" + out.name + L"\"");
    return out;
}

std::wstring choices::field(NORLEX_well& well, const NORLEX_propDescription& prop) {
    std::vector<std::wstring> names;
    if (const auto opened = well.openProperty(prop))
        for (const auto& field : opened->getFields())
            names.push_back(field.name);
    return oneOf(names);
}

std::wstring choices::oneOf(const std::vector<std::wstring>& there) {
    const std::uint8_t chosen = byte();
    if (chosen >= mostly || there.empty())
        return name();
    tell(L"\"" + there[chosen % there.size()] + L"\"");
    return there[chosen % there.size()];
}

} // namespace fuzzContainer
