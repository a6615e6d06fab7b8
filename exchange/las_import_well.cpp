#include "exchange/las_import_well.h"

#include "exchange/null_value.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace lasImportWell {

namespace {

constexpr double metresInFoot = 0.3048;

template <std::size_t N>
bool isOneOf(const std::wstring& text, const std::array<std::wstring_view, N>& words) {
    return std::find(words.begin(), words.end(), ts::strconv::upper(text)) != words.end();
}

// The first entry of a mnemonic, in any case of letters, with a value; null when there is none.
const lasDescription* find(const std::vector<lasDescription>& entries, std::wstring_view mnemonic) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const auto& entry) {
        return !entry.value.empty() && ts::strconv::upper(entry.mnemonic) == mnemonic;
    });
    return found == entries.end() ? nullptr : &*found;
}

const lasDescription* find(const NORLEX_lasfileExt& file, std::wstring_view mnemonic) {
    const lasDescription* const inWell = find(file.getWellInf(), mnemonic);
    return inWell != nullptr ? inWell : find(file.getMeta(), mnemonic);
}

// Version 1.2 writes the names of the ~W block behind the colon, "WELL.  WELL: 12-34", and only a
// label before it; many of its writers do not.
std::wstring nameIn(const NORLEX_lasfileExt& file, const lasDescription& entry) {
    static constexpr std::array<std::wstring_view, 11> labels = {L"WELL",
                                                                 L"WELL NAME",
                                                                 L"FIELD",
                                                                 L"FIELD NAME",
                                                                 L"FLD",
                                                                 L"UWI",
                                                                 L"UNIQUE WELL ID",
                                                                 L"UNIQUE WELL IDENTIFIER",
                                                                 L"API",
                                                                 L"API NUMBER",
                                                                 L"API NO"};
    const bool isOld = file.getVersion() < 2 || file.getVersionText().empty();
    return isOld && !entry.description.empty() && isOneOf(entry.value, labels) ? entry.description
                                                                               : entry.value;
}

// What of a text can be a name.
std::wstring nameOf(std::wstring text) {
    std::erase_if(text, [](wchar_t c) {
        return static_cast<unsigned>(c) < 0x20 || c == 0x7F || !ts::strconv::isText({&c, 1});
    });
    return std::wstring(numbers::trimmed(sqlText::plainName(text)));
}

std::wstring nameOf(const NORLEX_lasfileExt& file, const lasDescription* entry) {
    return entry == nullptr ? std::wstring() : nameOf(nameIn(file, *entry));
}

std::wstring nameOfEntry(const NORLEX_lasfileExt& file, std::wstring_view mnemonic) {
    return nameOf(file, find(file.getWellInf(), mnemonic));
}

std::wstring stemOf(const std::wstring& path) {
    const std::wstring name = files::nameOf(path);
    return name.substr(0, name.size() - files::extensionOf(path).size());
}

// From the sources that the options name.
std::wstring chosenName(const NORLEX_lasfileExt& file,
                        const std::wstring& path,
                        const std::vector<std::wstring>& sources) {
    std::wstring name;
    for (const auto& source : sources) {
        const std::wstring mnemonic = ts::strconv::upper(source);
        name = mnemonic == L"FILE" ? nameOf(stemOf(path)) : nameOf(file, find(file, mnemonic));
        if (!name.empty())
            break;
    }
    return name;
}

std::optional<double> numberOf(const NORLEX_lasfileExt& file, const lasDescription* entry) {
    const auto value = entry == nullptr ? std::nullopt : numbers::toDouble(entry->value);
    if (!value || nullValue::is(*value, file.getNodata()))
        return std::nullopt;
    return value;
}

std::optional<double> numberOf(const NORLEX_lasfileExt& file, std::wstring_view mnemonic) {
    const auto inWell = numberOf(file, find(file.getWellInf(), mnemonic));
    return inWell ? inWell : numberOf(file, find(file.getMeta(), mnemonic));
}

std::optional<double> firstNumber(const NORLEX_lasfileExt& file,
                                  std::initializer_list<std::wstring_view> mnemonics) {
    for (const auto mnemonic : mnemonics)
        if (const auto value = numberOf(file, mnemonic))
            return value;
    return std::nullopt;
}

} // namespace

NORLEX_wellDescription describe(const NORLEX_lasfileExt& file,
                                const std::wstring& path,
                                const NORLEX_lasImportOptions& options,
                                const exactNotes::notes& notes) {
    NORLEX_wellDescription well;
    well.workObject = sqlText::plainName(options.workObject);
    well.field = sqlText::plainName(!options.field.empty() ? options.field : notes.fieldName);
    if (well.field.empty())
        well.field = nameOfEntry(file, L"FLD");
    if (!options.wellFrom.empty()) {
        well.name = chosenName(file, path, options.wellFrom);
        return well;
    }
    well.name = sqlText::plainName(notes.wellName);
    for (const auto mnemonic : {L"WELL", L"UWI", L"API"})
        if (well.name.empty())
            well.name = nameOfEntry(file, mnemonic);
    if (well.name.empty())
        well.name = nameOf(stemOf(path));
    return well;
}

std::optional<position> positionOf(const NORLEX_lasfileExt& file) {
    static constexpr std::pair<std::wstring_view, std::wstring_view> pairs[] = {
        {L"XCOORD", L"YCOORD"},
        {L"X_COORD", L"Y_COORD"},
        {L"XWELL", L"YWELL"},
        {L"X", L"Y"},
        {L"EASTING", L"NORTHING"},
        {L"EAST", L"NORTH"},
    };
    for (const auto& [east, north] : pairs) {
        const auto x = numberOf(file, east);
        const auto y = numberOf(file, north);
        if (x && y)
            return position{*x, *y};
    }
    const auto longitude = firstNumber(file, {L"LONG", L"LON", L"LONGITUDE"});
    const auto latitude = firstNumber(file, {L"LATI", L"LAT", L"LATITUDE"});
    if (longitude && latitude && std::abs(*longitude) <= 180.0 && std::abs(*latitude) <= 90.0)
        return position{*longitude, *latitude};
    return std::nullopt;
}

std::optional<double> altitudeOf(const NORLEX_lasfileExt& file) {
    for (const std::wstring_view mnemonic : {L"EREF",
                                             L"EKB",
                                             L"KB",
                                             L"EDF",
                                             L"DF",
                                             L"ELEV",
                                             L"ELEVATION",
                                             L"ALTITUDE",
                                             L"EGL",
                                             L"GL"}) {
        const lasDescription* const entry = find(file, mnemonic);
        const auto value = numberOf(file, entry);
        const auto unit = value ? metresIn(entry->unit) : std::nullopt;
        if (unit)
            return *value * *unit;
    }
    return std::nullopt;
}

std::optional<double> metresIn(const std::wstring& unit) {
    static constexpr std::array<std::wstring_view, 5> feet = {
        L"F", L"FT", L"FEET", L"FOOT", L"FT."};
    static constexpr std::array<std::wstring_view, 8> metres = {
        L"", L"M", L"METER", L"METERS", L"METRE", L"METRES", L"M.", L"\u041C"};
    constexpr std::wstring_view brackets = L"[](){} ";
    const auto from = unit.find_first_not_of(brackets);
    const std::wstring bare = from == std::wstring::npos
                                  ? std::wstring()
                                  : unit.substr(from, unit.find_last_not_of(brackets) - from + 1);
    if (isOneOf(bare, feet))
        return metresInFoot;
    if (isOneOf(bare, metres))
        return 1.0;
    return std::nullopt;
}

} // namespace lasImportWell
