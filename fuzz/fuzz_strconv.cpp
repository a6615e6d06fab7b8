// Any bytes in every encoding: decoding gives text, and text survives the Unicode encodings.
#include "fuzz/require.h"
#include "platform/strconv.h"

#include <cstdint>
#include <string>

using namespace ts::strconv;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (int value = detect; value <= iso8859_5; ++value) {
        const std::wstring text = decode(bytes, static_cast<encodings>(value));
        require(isText(text));
        require(isText(decode(encode(text, static_cast<encodings>(value)), utf8)));
        for (const encodings wide : {utf8, utf16le, utf16be, utf32le, utf32be})
            require(decode(encode(text, wide), wide) == text);
    }
    require(detectEncoding(bytes) != detect);
    require(findMark(bytes).length <= size);

    const std::wstring text = fromUtf8(bytes);
    require(isUtf8(toUtf8(text)));
    require(isUtf8(bytes) == (toUtf8(text) == bytes));
    require(toUtf8(lower(text)) == lowerUtf8(toUtf8(text)));
    require(toUtf8(upper(text)) == upperUtf8(toUtf8(text)));
    static_cast<void>(byName(bytes));
    return 0;
}
