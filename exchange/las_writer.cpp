#include "exchange/las_writer.h"

#include "exchange/fixed_text.h"
#include "platform/files.h"
#include "platform/strconv.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace {

constexpr std::size_t bufferSize = std::size_t{1} << 18;

std::wstring oneLine(std::wstring_view text) {
    std::wstring out(text);
    for (wchar_t& c : out)
        if (c == L'\n' || c == L'\r')
            c = L' ';
    return out;
}

bool isThere(const std::vector<lasDescription>& entries, const std::wstring& mnemonic) {
    return std::any_of(entries.begin(), entries.end(), [&](const lasDescription& entry) {
        return entry.mnemonic == mnemonic;
    });
}

} // namespace

las_writer::las_writer(std::FILE* file, ts::strconv::encodings encoding)
    : m_file(file), m_encoding(encoding), m_buffer(bufferSize) {}

void las_writer::line(std::wstring_view text) {
    ascii(ts::strconv::encode(oneLine(text), m_encoding));
    endLine();
}

void las_writer::block(const std::vector<lasDescription>& entries) {
    std::size_t width = 0;
    for (const auto& entry : entries)
        width = std::max(width, entry.value.size());
    for (const auto& entry : entries)
        line(entry.mnemonic + L'.' + entry.unit + L' '
             + std::wstring(width - entry.value.size(), L' ') + entry.value + L" : "
             + entry.description);
}

void las_writer::fixed(double value, int decimals) {
    take(fixedText::write(room(fixedText::longest), value, decimals));
}

void las_writer::shortest(double value) {
    constexpr std::size_t longest = 32; // "-1.7976931348623157e+308" has 24
    char* const to = room(longest);
    take(std::to_chars(to, to + longest, value).ptr);
}

void las_writer::ascii(std::string_view text) {
    if (text.size() > m_buffer.size()) {
        m_ok = flush() && files::put(m_file, text);
        return;
    }
    char* const to = room(text.size());
    std::memcpy(to, text.data(), text.size());
    take(to + text.size());
}

void las_writer::endLine() {
    char* const to = room(1);
    *to = '\n';
    take(to + 1);
}

bool las_writer::flush() {
    m_ok = m_ok && files::put(m_file, {m_buffer.data(), m_used});
    m_used = 0;
    return m_ok;
}

char* las_writer::room(std::size_t bytes) {
    if (m_used + bytes > m_buffer.size())
        static_cast<void>(flush()); // a failure stays in m_ok
    return m_buffer.data() + m_used;
}

void las_writer::take(const char* end) {
    m_used = static_cast<std::size_t>(end - m_buffer.data());
}

void addNewEntries(std::vector<lasDescription>& entries, const std::vector<lasDescription>& more) {
    for (const auto& entry : more)
        if (!isThere(entries, entry.mnemonic))
            entries.push_back(entry);
}
