// Texts that break what is not made for them.
#pragma once

#include <string>
#include <vector>

namespace hostile {

// Each alone, at the beginning, at the end and inside of other text, and twice: over 300.
inline std::vector<std::wstring> texts() {
    using namespace std::string_literals;
    const std::wstring parts[] = {// statements
                                  L"'"s,
                                  L"''"s,
                                  L"\""s,
                                  L"`"s,
                                  L"'; DROP TABLE well_base; --"s,
                                  L"' OR '1'='1"s,
                                  L"') OR (1=1"s,
                                  L"; DELETE FROM val"s,
                                  L"--"s,
                                  L"/*"s,
                                  L"*/"s,
                                  L"\\"s,
                                  L"\\'"s,
                                  L"%"s,
                                  L"_"s,
                                  L"[a-z]"s,
                                  L"?"s,
                                  L"$1"s,
                                  L":name"s,
                                  L"@p"s,
                                  L"#{x}"s,
                                  L"NULL"s,
                                  L"0x00"s,
                                  L"1e999"s,
                                  L"E'\\n'"s,
                                  L"$$x$$"s,
                                  L"U&'\\0041'"s,
                                  L"||"s,
                                  // paths
                                  L"/"s,
                                  L".."s,
                                  L"../../etc/passwd"s,
                                  L"..\\..\\x"s,
                                  L"."s,
                                  L"a/b"s,
                                  L"C:\\x"s,
                                  L"~"s,
                                  L"CON"s,
                                  L"nul.txt"s,
                                  L"LPT1"s,
                                  L" "s,
                                  L"a."s,
                                  L"*"s,
                                  L"<>|"s,
                                  L"%2e%2e%2f"s,
                                  L"%00"s,
                                  // texts of other formats
                                  L";"s,
                                  L","s,
                                  L"\t"s,
                                  L"\n"s,
                                  L"\r\n"s,
                                  L"<a>&amp;</a>"s,
                                  L"]]>"s,
                                  L"{\"a\":1}"s,
                                  L"=1+1"s,
                                  L"~A"s,
                                  L"#"s,
                                  L"{D1-D3}"s,
                                  // letters
                                  L"Ё"s,
                                  L"ß"s,
                                  L"İı"s,
                                  L"e\u0301"s,
                                  L"\u00e9"s,
                                  L"\u202eabc"s,
                                  L"\u200b"s,
                                  L"\ufeff"s,
                                  L"\U0001F600"s,
                                  L"\U0010FFFF"s,
                                  L"\u2028"s,
                                  L"\u0001"s,
                                  L"\u001b[31m"s,
                                  L"\u0085"s,
                                  L"日本"s,
                                  L"שלום"s};
    std::vector<std::wstring> out;
    for (const auto& part : parts)
        for (const auto& text : {part, part + L"z", L"z" + part, L"z" + part + L"z", part + part})
            out.push_back(text);
    out.push_back(std::wstring(100'000, L'я'));
    out.push_back(std::wstring(241, L'n'));
    out.push_back(L"a\0b"s);
    out.push_back({static_cast<wchar_t>(0xD800)}); // half of a pair
    out.push_back({L'a', static_cast<wchar_t>(0xDFFF), L'b'});
    return out;
}

} // namespace hostile
