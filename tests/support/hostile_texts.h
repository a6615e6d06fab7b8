// Texts that break what is not made for them.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace hostile {

using namespace std::string_literals;

// By what they may be taken for.
inline std::vector<std::wstring> statements() {
    return {L"'"s,
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
            L"#"s,
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
            L"E'\\n'"s,
            L"$$x$$"s,
            L"$q$; DROP TABLE val; $q$"s,
            L"U&'\\0041'"s,
            L"{fn now()}"s,
            L"{ts '2024-01-01 00:00:00'}"s,
            L"{?= call f(?)}"s,
            L"||"s,
            L"NULL"s};
}

inline std::vector<std::wstring> paths() {
    return {L"/"s,           L".."s,
            L"../escaped"s,  L"../../../../../escaped"s,
            L"..\\..\\x"s,   L"/tmp/welldb-escaped"s,
            L"."s,           L"a/b"s,
            L"C:\\x"s,       L"C:x"s,
            L"\\\\host\\x"s, L"\\\\?\\C:\\x"s,
            L"file:///x"s,   L"~"s,
            L"CON"s,         L"nul.txt"s,
            L"LPT1"s,        L"COM\u00b9"s,
            L"AUX:"s,        L"x::$DATA"s,
            L"a."s,          L"*"s,
            L"<>|"s,         L"%2e%2e%2f"s,
            L"%00"s,         L"journal.db"s,
            L".pending"s,    L"log.wpdb"s};
}

inline std::vector<std::wstring> formats() {
    return {L";"s,       L","s,      L"\t"s,       L"\n"s,           L"\r"s,
            L"\r\n"s,    L" "s,      L"  a  b  "s, L"\"a\";\"b\""s,  L"<a>&amp;</a>"s,
            L"&#0;"s,    L"<!--"s,   L"]]>"s,      L"<?xml?>"s,      L"{\"a\":1}"s,
            L"=1+1"s,    L"~A"s,     L"#comment"s, L"DEPT.M 1 : x"s, L"{D1-D3}"s,
            L"(a+)+$"s,  L"^.*[^]"s, L"%s%n%1$x"s, L"{0}{}"s,        L"a=b;c=d"s,
            L"a\u001fb"s};
}

inline std::vector<std::wstring> numbers() {
    return {L"0"s,
            L"-0"s,
            L"1e400"s,
            L"1e-400"s,
            L"NaN"s,
            L"inf"s,
            L"-inf"s,
            L"1,5"s,
            L"0x10"s,
            L"1_000"s,
            L"+7"s,
            L".5"s,
            L"5."s,
            L"12345678901234567890"s,
            L"1 2"s,
            L"\u0661"s,
            L"-999.25"s,
            L"2000000"s,
            L"true"s};
}

inline std::vector<std::wstring> letters() {
    return {L"Ё"s,
            L"ß"s,
            L"İı"s,
            L"e\u0301"s,
            L"\u00e9"s,
            L"\u0301"s,
            L"\u202eabc"s,
            L"\u2066x\u2069"s,
            L"\u200b"s,
            L"\u00a0"s,
            L"\ufeff"s,
            L"\U0001F600"s,
            L"\U0001F468\u200d\U0001F469"s,
            L"\U0010FFFF"s,
            L"\ufffe"s,
            L"\u2028"s,
            L"\u0001"s,
            L"\u001b[31m"s,
            L"\u007f"s,
            L"\u0085"s,
            L"\u3000"s,
            L"日本"s,
            L"שלום"s};
}

// What is not taken whole everywhere: too long, no text, or none at all.
inline std::vector<std::wstring> extremes() {
    std::wstring halfPair = L"a-b";
    halfPair[1] = static_cast<wchar_t>(0xDFFF);
    return {L""s,
            std::wstring(241, L'n'),
            std::wstring(100'000, L'я'),
            std::wstring(1'000'000, L'x'),
            L"a\0b"s,
            std::wstring(1, static_cast<wchar_t>(0xD800)),
            halfPair};
}

inline std::vector<std::wstring> joined(const std::vector<std::vector<std::wstring>>& lists) {
    std::vector<std::wstring> out;
    for (const auto& some : lists)
        out.insert(out.end(), some.begin(), some.end());
    return out;
}

// Each once.
inline std::vector<std::wstring> parts() {
    return joined({statements(), paths(), formats(), numbers(), letters()});
}

// What reaches an engine and may mean something to it.
inline std::vector<std::wstring> ofEngines() {
    auto out = joined({extremes(), statements(), formats(), letters()});
    std::erase_if(out, [](const auto& text) { return text.size() > 200'000; });
    return out;
}

// Each alone, and those of one or two signs at the beginning, at the end and inside of other text,
// and twice: over 300. The long ones come first: what was stored last is of usual length.
inline std::vector<std::wstring> texts() {
    std::vector<std::wstring> out = joined({extremes(), parts()});
    for (const auto& part : parts())
        if (part.size() <= 2)
            for (const auto& text : {part + L"z", L"z" + part, L"z" + part + L"z", part + part})
                if (std::find(out.begin(), out.end(), text) == out.end())
                    out.push_back(text);
    return out;
}

// Files are read from bytes: these are no UTF-8, or no text.
inline std::vector<std::string> bytes() {
    return {"\xff"s,
            "\xc3"s,
            "\xc0\xaf"s,
            "\xed\xa0\x80"s,
            "\xf8\x88\x80"s,
            "\xf4\x90\x80\x80"s,
            "a\0b"s,
            "\x80\x81\x8d\x8f\x98"s,
            "\xfe\xff"s,
            "\x1a"s,
            "\xef\xbf\xbe"s,
            std::string(100'000, '\xd1')};
}

} // namespace hostile
