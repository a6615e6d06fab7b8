// The text encodings that files may be read and written in.
#pragma once

namespace ts::strconv {

// The values are stored by host applications; windows-1251 is 8.
enum encodings : int {
    detect = 0, // decided from a byte-order mark, else from the bytes themselves
    utf8 = 1,
    utf16le = 2,
    utf16be = 3,
    utf32le = 4,
    utf32be = 5,
    cp866 = 6,
    koi8r = 7,
    windows1251 = 8,
    iso8859_1 = 9,
    iso8859_5 = 10,
};

} // namespace ts::strconv
