// How a path becomes a description: NORLEX_wellContainer's readers of server description files.
#include "NORLEX_wellContainer.h"
#include "platform/files.h"
#include "platform/textio.h"
#include "store/connection.h"

namespace {

constexpr std::wstring_view serverTitle = L"[TESSARO_welldb_Server_Description]";

// A value with "=" in it is a connection string already, any other names a data source.
void addDatabase(std::wstring& connection, const std::wstring& value) {
    if (value.empty())
        return;
    connection += value.find(L'=') == std::wstring::npos ? L"DSN=" + value : value;
    if (connection.back() != L';') // an empty pair would end the string for some drivers
        connection += L';';
}

// The first of the names that the line contains decides, wherever it stands in the line.
void applySetting(const std::wstring& line, NORLEX_contDescription& description) {
    const auto contains = [&](const wchar_t* name) {
        return line.find(name) != std::wstring::npos;
    };
    const auto equals = line.find(L'=');
    if (equals == std::wstring::npos)
        return;
    const std::wstring rest = line.substr(equals + 1);
    const std::wstring second = rest.substr(0, rest.find(L'='));
    if (contains(L"fileFolder"))
        description.fileContainerPath = second;
    else if (contains(L"UID"))
        description.user = second;
    else if (contains(L"PWD"))
        description.password = second;
    else if (contains(L"Database"))
        addDatabase(description.connection, rest);
}

} // namespace

bool NORLEX_wellContainer::isServerDBFile(const std::wstring& path) {
    ts::textio text;
    std::string_view line;
    return !connection::isOpenHere(path) && files::isFile(path)
           && text.open(path, ts::strconv::detect) && text.next(line)
           && text.wide(line) == serverTitle;
}

void NORLEX_wellContainer::makeServerConnectionString(const std::wstring& path,
                                                      NORLEX_contDescription& description) {
    ts::textio text;
    if (!text.open(path, ts::strconv::detect))
        return;
    for (std::string_view line; text.next(line);)
        applySetting(text.wide(line), description);
}

NORLEX_contDescription NORLEX_wellContainer::makeDescription(const std::wstring& path) {
    NORLEX_contDescription description;
    description.path = path;
    if (isServerDBFile(path)) {
        description.type = 2;
        makeServerConnectionString(path, description);
        return description;
    }
    description.type = 1;
    description.connection = path;
    const std::wstring name = files::nameOf(path);
    const std::wstring stem = name.substr(0, name.size() - files::extensionOf(path).size());
    description.fileContainerPath = files::folderOf(path) + stem + L"\\";
    return description;
}
