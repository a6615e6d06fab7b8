#include "exchange/las_mnemonics.h"

#include "exchange/las_sections.h"

#include <algorithm>
#include <array>

namespace lasMnemonics {

namespace {

struct meaning {
    std::wstring_view mnemonic;
    const wchar_t* comment;
};

constexpr const wchar_t* xComment = L"X coordinate (easting)";
constexpr const wchar_t* yComment = L"Y coordinate (northing)";
constexpr const wchar_t* kellyBushing = L"elevation of the kelly bushing";
constexpr const wchar_t* drillFloor = L"elevation of the drill floor";
constexpr const wchar_t* ground = L"elevation of the ground";

constexpr std::array<meaning, 38> positions = {{
    {L"X", xComment},
    {L"Y", yComment},
    {L"XCOORD", xComment},
    {L"YCOORD", yComment},
    {L"X_COORD", xComment},
    {L"Y_COORD", yComment},
    {L"XCRD", xComment},
    {L"YCRD", yComment},
    {L"XLOC", xComment},
    {L"YLOC", yComment},
    {L"XWELL", xComment},
    {L"YWELL", yComment},
    {L"EAST", xComment},
    {L"NORTH", yComment},
    {L"EASTING", xComment},
    {L"NORTHING", yComment},
    {L"LAT", L"latitude"},
    {L"LATI", L"latitude"},
    {L"LATITUDE", L"latitude"},
    {L"LON", L"longitude"},
    {L"LONG", L"longitude"},
    {L"LONGI", L"longitude"},
    {L"LONGITUDE", L"longitude"},
    {L"EKB", kellyBushing},
    {L"KB", kellyBushing},
    {L"ELKB", kellyBushing},
    {L"EDF", drillFloor},
    {L"DF", drillFloor},
    {L"EGL", ground},
    {L"GL", ground},
    {L"ELGL", ground},
    {L"ERT", L"elevation of the rotary table"},
    {L"RT", L"elevation of the rotary table"},
    {L"EREF", L"elevation of the depth reference"},
    {L"EPD", L"elevation of the permanent datum"},
    {L"APD", L"depth reference above the permanent datum"},
    {L"ELEV", L"elevation"},
    {L"ALT", L"altitude"},
}};

} // namespace

const wchar_t* positionMeaning(std::wstring_view mnemonic) {
    const auto* const found = std::ranges::find_if(positions, [&](const meaning& each) {
        return lasSections::sameWithoutCase(each.mnemonic, mnemonic);
    });
    return found == positions.end() ? nullptr : found->comment;
}

} // namespace lasMnemonics
