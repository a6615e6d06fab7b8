// What mnemonics of a LAS header mean, compared without case.
#pragma once

#include <string_view>

namespace lasMnemonics {

// What a coordinate or an elevation is; null for any other mnemonic.
[[nodiscard]] const wchar_t* positionMeaning(std::wstring_view mnemonic);

} // namespace lasMnemonics
