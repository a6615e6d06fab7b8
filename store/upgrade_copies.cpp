#include "store/upgrade_copies.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/sql_text.h"
#include "platform/transaction_files.h"

#include <array>
#include <cstring>

using namespace sqlText;

namespace upgrade {

namespace {

using block = std::array<char, 65536>;

std::wstring numbered(const std::wstring& path, int number) {
    if (number == 1)
        return path;
    const std::wstring extension = files::extensionOf(path);
    return sql(path.substr(0, path.size() - extension.size()), L"_", key(number), extension);
}

bool copyBytes(std::FILE* from, std::FILE* to) {
    block bytes;
    std::size_t got = 0;
    while ((got = std::fread(bytes.data(), 1, bytes.size(), from)) > 0)
        if (!files::put(to, {bytes.data(), got}))
            return false;
    return std::ferror(from) == 0;
}

} // namespace

bool isSameContent(const std::wstring& one, const std::wstring& other) {
    if (files::size(one) != files::size(other))
        return false;
    const auto a = files::openRead(one);
    const auto b = files::openRead(other);
    block fromA;
    block fromB;
    std::size_t got = sizeof fromA;
    while (a && b && got == sizeof fromA) {
        got = std::fread(fromA.data(), 1, fromA.size(), a.get());
        if (std::fread(fromB.data(), 1, fromB.size(), b.get()) != got
            || std::memcmp(fromA.data(), fromB.data(), got) != 0)
            return false;
    }
    return a && b && std::ferror(a.get()) == 0;
}

std::wstring copyInto(odbc_database& db, const std::wstring& source, const std::wstring& target) {
    for (int number = 1;; ++number) {
        const std::wstring path = numbered(target, number);
        if (files::isFile(path)) {
            if (isSameContent(source, path))
                return path;
            continue;
        }
        const auto from = files::openRead(source);
        const bool done = from && db.files().write(path, [&](std::FILE* to) {
            return copyBytes(from.get(), to);
        });
        return done ? path : std::wstring();
    }
}

} // namespace upgrade
