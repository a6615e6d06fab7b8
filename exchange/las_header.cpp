#include "exchange/las_header.h"

#include "NORLEX_lasfileExt.h"
#include "exchange/las_number.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/strconv.h"
#include "platform/textio.h"

#include <charconv>
#include <unordered_map>
#include <utility>

using lasSections::kind;

namespace {

// Whether a line contains "~" and the letter, in either case, anywhere.
bool hasTag(std::string_view line, char letter) {
    const auto has = [&](char c) {
        const char tag[] = {'~', c};
        return line.find(tag, 0, 2) != std::string_view::npos;
    };
    return has(letter) || has(static_cast<char>(letter - 'A' + 'a'));
}

// A text that is no number leaves the value as it is.
void setNumber(double& number, const std::wstring& text) {
    const auto word = numbers::trimmed(std::wstring_view{text});
    if (const auto value = lasNumber::whole(word.substr(0, word.find_first_of(L" \t")), true))
        number = *value;
}

// `name`, or with "_2", "_3", … behind it where a curve has the name already. Names are compared
// without case: files and folders are made of them. `times` counts each, in lower case.
std::wstring unusedName(const std::wstring& name,
                        std::unordered_map<std::wstring, std::size_t>& times) {
    std::wstring unused = name;
    auto& used = times[ts::strconv::lower(name)];
    while (used++ > 0) {
        unused = name + L"_" + std::to_wstring(used);
        if (times.emplace(ts::strconv::lower(unused), 1).second)
            break;
    }
    return unused;
}

std::wstring trimmedText(std::wstring_view text) {
    return std::wstring{numbers::trimmed(text)};
}

} // namespace

las_header::las_header(NORLEX_lasfileExt& file, ts::textio& reader)
    : m_file(file), m_reader(reader) {}

bool las_header::read(const std::wstring& path) {
    if (!readLines(path))
        return false;
    takeVersion();
    for (const auto& line : m_lines)
        takeLine(line.number, text(line));
    closeUnread();
    if (!checkCurves(path))
        return false;
    takeCurves();
    return true;
}

bool las_header::hasData() const {
    return m_hasData;
}

bool las_header::readLines(const std::wstring& path) {
    bool titleSeen = false;
    std::string_view line;
    while (m_reader.next(line)) {
        const auto trimmed = numbers::trimmed(line);
        titleSeen = titleSeen || lasSections::isTitle(trimmed);
        m_hasData = lasSections::isTitle(trimmed) && lasSections::ofTitle(trimmed) == kind::data;
        if (m_hasData)
            break;
        m_lines.push_back({m_reader.lineNumber(), m_text.size(), line.size()});
        m_text += line;
        if (!titleSeen && m_text.size() + m_lines.size() > furthestTitle)
            break;
        if (titleSeen && (m_text.size() > largestHeader || m_lines.size() > mostLines))
            return refuse(
                L"cannot read " + path
                + L": its header is longer than 16 MB or a million lines; a LAS header is "
                  L"a few lines before a line that begins with \"~A\"");
    }
    if (m_reader.isLineTooLong())
        return refuse(L"cannot read " + path + L": line "
                      + std::to_wstring(m_reader.lineNumber() + 1)
                      + L" is longer than 1 MB; a LAS file is text in lines");
    if (!titleSeen)
        return refuse(
            L"cannot read " + path
            + L": no line of its first megabyte begins with \"~\"; a LAS file has sections "
              L"such as \"~Version\" and \"~ASCII\"");
    return true;
}

bool las_header::checkCurves(const std::wstring& path) const {
    return m_curveEntries.size() <= mostCurves
           || refuse(L"cannot read " + path + L": it names more than " + std::to_wstring(mostCurves)
                     + L" curves, depth included; up to that number can be read");
}

std::string_view las_header::text(const headerLine& line) const {
    return std::string_view{m_text}.substr(line.begin, line.length);
}

// The first line that contains the mnemonic anywhere, from the tag's line on: a section that
// follows ends nothing, and a comment counts like any line. Both are required so.
std::string_view las_header::getStringByID(char tag, std::string_view mnemonic) const {
    bool inside = false;
    for (const auto& each : m_lines) {
        const auto line = text(each);
        if (hasTag(line, 'A'))
            break;
        if (inside && line.find(mnemonic) != std::string_view::npos)
            return line;
        inside = inside || hasTag(line, tag);
    }
    return {};
}

void las_header::takeVersion() {
    m_file.m_versionText = parceDescription(m_reader.wide(getStringByID('V', "VERS"))).value;
    const std::string digits = ts::strconv::toUtf8(m_file.m_versionText);
    std::from_chars(digits.data(), digits.data() + digits.size(), m_file.m_version);
    m_file.m_version2 = m_file.m_version == 2;
    m_file.m_wrap = parceDescription(m_reader.wide(getStringByID('V', "WRAP"))).value == L"YES";
}

lasDescription las_header::parceDescription(std::wstring_view line) {
    const auto none = std::wstring_view::npos;
    const auto colon = line.find(L':');
    const auto point = line.substr(0, colon).find(L'.');
    lasDescription entry;
    if (colon != none)
        entry.description = trimmedText(line.substr(colon + 1));
    if (point == none) {
        if (colon != none)
            entry.mnemonic = trimmedText(line.substr(0, colon));
        return entry;
    }
    entry.mnemonic = trimmedText(line.substr(0, point));
    const auto datum = line.substr(0, colon).substr(point + 1);
    const auto unit = datum.substr(0, datum.find_first_of(L" \t"));
    entry.unit = trimmedText(unit);
    entry.value = trimmedText(datum.substr(unit.size()));
    return entry;
}

void las_header::takeLine(std::uint64_t number, std::string_view line) {
    const auto trimmed = numbers::trimmed(line);
    if (trimmed.empty() || trimmed.front() == '#')
        return;
    if (lasSections::isTitle(trimmed))
        return takeTitle(number, trimmed);
    if (m_section == kind::other)
        m_file.m_otherInformation.push_back(m_reader.wide(line));
    else if (m_section == kind::unread)
        ++m_unreadCount;
    else
        takeEntry(number, trimmed);
}

void las_header::takeTitle(std::uint64_t number, std::string_view title) {
    closeUnread();
    m_section = lasSections::ofTitle(title);
    // A second log set of version 3.0 has curves of its own.
    const bool anotherSet = m_section == kind::curves && !m_curveEntries.empty()
                            && title.find('_') != std::string_view::npos;
    if (anotherSet || (m_afterData && m_section != kind::parameters && m_section != kind::other))
        m_section = kind::unread;
    if (m_section == kind::unread) {
        m_unreadLine = number;
        m_unreadTitle = m_reader.wide(title.substr(0, 80));
    }
}

void las_header::closeUnread() {
    if (m_unreadLine != 0 && m_file.countSkipped())
        m_file.m_skipped.push_back({m_unreadLine,
                                    L"section \"" + m_unreadTitle + L"\" is not read: "
                                        + std::to_wstring(m_unreadCount)
                                        + (m_unreadCount == 1 ? L" line" : L" lines")});
    m_unreadLine = 0;
    m_unreadCount = 0;
}

void las_header::takeEntry(std::uint64_t number, std::string_view line) {
    const wchar_t* const fault = m_section == kind::none ? L"it stands before the first section"
                                 : line.find_first_of(".:") == std::string_view::npos
                                     ? L"it is no entry: neither \".\" nor \":\""
                                     : nullptr;
    if (fault != nullptr) {
        if (m_file.countSkipped())
            m_file.m_skipped.push_back({number, fault});
        return;
    }
    auto entry = parceDescription(m_reader.wide(line));
    if (m_section == kind::version) {
        if (lasSections::sameWithoutCase(entry.mnemonic, L"DLM"))
            m_delimiterName = ts::strconv::upper(entry.value);
    } else if (m_section == kind::well) {
        takeWellEntry(entry);
        m_file.m_wellEntries.push_back(std::move(entry));
    } else if (m_section == kind::curves) {
        if (m_curveEntries.size() <= mostCurves)
            m_curveEntries.push_back(std::move(entry));
    } else {
        m_file.m_metaEntries.push_back(std::move(entry));
    }
}

void las_header::takeWellEntry(const lasDescription& entry) {
    const std::pair<const wchar_t*, double*> numbersOfWell[] = {
        {L"NULL", &m_file.m_nullValue},
        {L"STRT", &m_file.m_start},
        {L"STOP", &m_file.m_stop},
        {L"STEP", &m_file.m_step},
    };
    for (const auto& [mnemonic, number] : numbersOfWell)
        if (lasSections::sameWithoutCase(entry.mnemonic, mnemonic))
            setNumber(*number, entry.value);
}

void las_header::takeCurves() {
    std::unordered_map<std::wstring, std::size_t> times;
    for (std::size_t i = 0; i < m_curveEntries.size(); ++i) {
        auto& entry = m_curveEntries[i];
        if (i == 0) {
            m_file.m_depth = std::move(entry);
            continue;
        }
        auto& curve = m_file.m_curves.emplace_back(unusedName(entry.mnemonic, times), 0);
        curve.setUnits(entry.unit);
        curve.setComment(entry.description);
        curve.setNodata(m_file.m_nullValue);
        curve.addCurveDesc(entry.mnemonic, entry.unit, entry.value, entry.description);
    }
}

lasFields::delimiter las_header::declaredDelimiter() const {
    return m_delimiterName == L"COMMA" ? lasFields::delimiter::comma
           : m_delimiterName == L"TAB" ? lasFields::delimiter::tab
                                       : lasFields::delimiter::blank;
}

void las_header::readAfterData() {
    m_afterData = true;
    m_section = kind::unread;
    std::size_t size = 0;
    std::string_view line;
    while (m_reader.next(line)) {
        size += line.size() + 1;
        if (size > largestHeader)
            break;
        takeLine(m_reader.lineNumber(), line);
    }
    const bool tooLong = m_reader.isLineTooLong() || size > largestHeader;
    closeUnread();
    if (tooLong && m_file.countSkipped())
        m_file.m_skipped.push_back(
            {m_reader.lineNumber(), L"what follows is not read: it is longer than a header"});
}
