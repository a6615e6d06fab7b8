// One header entry of a LAS file: "MNEM.UNIT  value : description".
#pragma once

#include <string>

// Serves the version, well, curve (value = API code) and parameter blocks.
struct lasDescription {
    std::wstring mnemonic;
    std::wstring unit;
    std::wstring value;
    std::wstring description;
};
