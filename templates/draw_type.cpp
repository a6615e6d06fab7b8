// How the properties of a template are drawn, and the text form of it.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "templates/template_queries.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

using namespace sqlText;

namespace {

// By value; the default has no word.
constexpr std::array<std::wstring_view, 7> words{
    L"", L"curve", L"fill", L"bars", L"symbols", L"labels", L"image"};

constexpr std::array<std::pair<wchar_t, std::wstring_view>, 3> escapes{
    {{L';', L"%3B"}, {L'=', L"%3D"}, {L'%', L"%25"}}};

std::wstring escaped(std::wstring_view text) {
    std::wstring out;
    for (const wchar_t c : text) {
        std::wstring_view written(&c, 1);
        for (const auto& [plain, code] : escapes)
            if (c == plain)
                written = code;
        out += written;
    }
    return out;
}

std::wstring plainText(std::wstring_view text) {
    std::wstring out;
    while (!text.empty()) {
        wchar_t c = text.front();
        std::size_t length = 1;
        for (const auto& [plain, code] : escapes)
            if (text.starts_with(code)) {
                c = plain;
                length = code.size();
            }
        out += c;
        text.remove_prefix(length);
    }
    return out;
}

// Takes the part before the next ";" off `rest`.
std::wstring_view nextPart(std::wstring_view& rest) {
    const std::wstring_view part = rest.substr(0, rest.find(L';'));
    rest.remove_prefix(std::min(rest.size(), part.size() + 1));
    return part;
}

} // namespace

std::wstring NORLEX_propTemplate::getDrawTypeString(NORLEX_drawType type,
                                                    const NORLEX_drawParams& params) {
    const auto index = static_cast<std::size_t>(type); // a negative one is large
    std::wstring text(index < words.size() ? words[index] : words[0]);
    for (const auto& [name, value] : params)
        text += sql(L";", escaped(name), L"=", escaped(value));
    return text;
}

NORLEX_drawType NORLEX_propTemplate::getDrawTypeFromString(const std::wstring& text) {
    std::wstring_view rest(text);
    const std::wstring_view word = nextPart(rest);
    for (std::size_t i = 0; i < words.size(); ++i)
        if (words[i] == word)
            return static_cast<NORLEX_drawType>(i);
    return NORLEX_drawTypeDefault;
}

NORLEX_drawParams NORLEX_propTemplate::getDrawTypeParamsFromString(const std::wstring& text) {
    NORLEX_drawParams params;
    std::wstring_view rest(text);
    static_cast<void>(nextPart(rest)); // the kind
    while (!rest.empty()) {
        const std::wstring_view part = nextPart(rest);
        const auto equals = std::min(part.find(L'='), part.size());
        if (!part.empty())
            params[plainText(part.substr(0, equals))] =
                plainText(part.substr(std::min(equals + 1, part.size())));
    }
    return params;
}

std::wstring NORLEX_propTemplate::getBasicDrawType(odbc_database* db, const std::wstring& name) {
    return templateQueries::text(
        db, sql(L"SELECT draw_type FROM base_template WHERE name = ", quoted(name)));
}

std::wstring NORLEX_propTemplate::getBasicDrawType(odbc_database* db, std::uint32_t templateId) {
    return templateQueries::text(
        db, sql(L"SELECT draw_type FROM base_template WHERE bt_id = ", key(templateId)));
}

std::wstring NORLEX_propTemplate::getBasicDrawType() const {
    return getBasicDrawType(m_db, m_id);
}

bool NORLEX_propTemplate::setBasicDrawType(NORLEX_drawType type, const NORLEX_drawParams& params) {
    const std::wstring set = sql(L" SET draw_type = ",
                                 quoted(getDrawTypeString(type, params)),
                                 L" WHERE bt_id = ",
                                 key(m_id));
    return edit({}, true, [&] {
        return m_db->exec(sql(L"UPDATE base_template", set))
               && m_db->exec(sql(L"UPDATE property", set));
    });
}
