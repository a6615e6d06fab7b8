#include "strat/chart_file.h"

#include "platform/last_error.h"
#include "platform/module_path.h"
#include "platform/textio.h"

#include <string_view>

namespace chartFile {

namespace {

// A file that is no Unicode is windows-1251: there are too few letters in a chart for its other
// code pages to be told apart.
bool open(ts::textio& file, const std::wstring& path) {
    using namespace ts::strconv;
    if (!file.open(path, detect))
        return false;
    const encodings found = file.encoding();
    return (found >= utf8 && found <= utf32be) || file.open(path, windows1251);
}

bool split(std::wstring_view line, strategraphy::raw_data& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t end = line.find(L';');
        if (end == std::wstring_view::npos && i + 1 < fields.size())
            return false;
        fields[i] = line.substr(0, end);
        line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + 1);
    }
    return true;
}

} // namespace

std::wstring shippedPath() {
    return ts_options_get_main_module_path() + L"strategraphy/strato_base.csv";
}

bool read(const std::wstring& path, std::vector<strategraphy::raw_data>& rows) {
    ts::textio file;
    if (!open(file, path))
        return false;
    std::string_view line;
    strategraphy::raw_data fields;
    while (file.next(line))
        if (split(file.wide(line), fields))
            rows.push_back(fields);
    return !file.isLineTooLong()
           || refuse(L"the line behind line " + std::to_wstring(file.lineNumber())
                     + L" of the chart " + path + L" is too long");
}

} // namespace chartFile
