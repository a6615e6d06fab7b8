// How header entries of a LAS file are kept as attributes of a log.
//
// The key is the block and the mnemonic, "WELL.COMP", "PARAM.BHT", "CURVE.GR"; the value is unit,
// value and description with U+001F (unit separator) between them. "UNITS" alone is the log's unit,
// "TYPE" its kind by the catalogue of curves.
#pragma once

#include "NORLEX_lasDescription.h"
#include "store/metadata.h"

#include <string>
#include <vector>

namespace headerAttributes {

inline constexpr const wchar_t* units = L"UNITS";
inline constexpr const wchar_t* type = L"TYPE";
inline constexpr const wchar_t* nullValue = L"NULL";       // of the file, as text
inline constexpr const wchar_t* depthUnit = L"DEPTH_UNIT"; // of the file's depth column

enum class block { well, param, curve };

void add(metadata::pairs& attributes, block of, const lasDescription& entry);
[[nodiscard]] std::vector<lasDescription> entries(const metadata::pairs& attributes, block of);

} // namespace headerAttributes
