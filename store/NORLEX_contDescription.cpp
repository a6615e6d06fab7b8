#include "NORLEX_contDescription.h"

#include "platform/numbers.h"
#include "platform/strconv.h"

namespace {

// A value that would end its own pair stands in braces, as ODBC has it; so does one that would lose
// the blanks at its ends, which a password keeps.
std::wstring pairOf(const wchar_t* name, const std::wstring& value, bool isPassword) {
    if (value.empty())
        return {};
    std::wstring spelled = value;
    if (value.find_first_of(L";{}") != std::wstring::npos
        || (!isPassword && numbers::trimmed(value) != value)) {
        spelled = L"{";
        for (const wchar_t c : value)
            spelled.append(c == L'}' ? 2 : 1, c);
        spelled += L'}';
    }
    return name + (L"=" + spelled) + L";";
}

} // namespace

std::string NORLEX_contDescription::getConnectionString() const {
    return ts::strconv::toUtf8(connection + pairOf(L"UID", user, false)
                               + pairOf(L"PWD", password, true));
}

bool NORLEX_contDescription::isOK() const {
    if (path.empty())
        return false;
    return type == 1 || (type == 2 && !user.empty() && !password.empty());
}

bool NORLEX_contDescription::isNeedPwd() const {
    return type == 2 && (user.empty() || password.empty());
}

bool operator==(const NORLEX_contDescription& a, const NORLEX_contDescription& b) {
    return a.type == b.type && a.path == b.path;
}
