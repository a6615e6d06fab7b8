// Any bytes as a server description file: the description holds what its lines can have set.
#include "NORLEX_wellContainer.h"
#include "fuzz/require.h"
#include "fuzz/scratch.h"
#include "platform/files.h"
#include "platform/strconv.h"

#include <cstdint>
#include <string>

namespace {

// A carriage return inside a line is a part of it where the file's lines end otherwise.
bool isValue(const std::wstring& text) {
    return text.find_first_of(L"=\n") == std::wstring::npos && ts::strconv::isText(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const scratchFolder folder("fuzz_description");
    static const std::wstring path = folder / L"input";
    {
        const auto file = files::openWrite(path);
        require(file && files::put(file.get(), {reinterpret_cast<const char*>(data), size}));
    }
    const auto made = NORLEX_wellContainer::makeDescription(path);
    require(made.path == path);
    require(NORLEX_wellContainer::isServerDBFile(path) == (made.type == 2));
    if (made.type == 1)
        require(made.connection == path && made.user.empty() && made.password.empty());

    // The same lines whatever the first of them is.
    NORLEX_contDescription read;
    NORLEX_wellContainer::makeServerConnectionString(path, read);
    require(isValue(read.fileContainerPath) && isValue(read.user) && isValue(read.password));
    require(read.connection.empty() || read.connection.back() == L';');
    require(read.getConnectionString().starts_with(ts::strconv::toUtf8(read.connection)));
    if (made.type == 2)
        require(made.connection == read.connection && made.user == read.user);
    static_cast<void>(files::removeFile(path));
    return 0;
}
