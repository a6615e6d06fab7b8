// Any text as a statement for the server: what is adapted stays one statement and keeps its
// literals, in their order.
#include "fuzz/require.h"
#include "platform/postgres_dialect.h"
#include "platform/sql_tokens.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::vector<std::string_view> literalsOf(std::string_view text) {
    std::vector<std::string_view> out;
    for (const auto& token : sqlTokens::split(text))
        if (token.type == sqlTokens::kind::literal)
            out.push_back(text.substr(token.begin, token.end - token.begin));
    return out;
}

// One that is not closed swallows what is put behind it; a server refuses it.
bool isClosed(const std::vector<std::string_view>& literals) {
    return literals.empty() || std::ranges::count(literals.back(), '\'') % 2 == 0;
}

// Literals may be added in between, such as the empty one of an ESCAPE.
bool holdsInOrder(const std::vector<std::string_view>& all,
                  const std::vector<std::string_view>& wanted) {
    std::size_t found = 0;
    for (const auto& one : all)
        if (found < wanted.size() && one == wanted[found])
            ++found;
    return found == wanted.size();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace postgresDialect;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const adapted first = adapt(text);
    static_cast<void>(insertionOf(text));
    static_cast<void>(isDefinition(text));
    static_cast<void>(deletionOf(text));
    static_cast<void>(largestKeyOf(text));
    if (first.is != shape::statement)
        return 0;
    require(adapt(first.text).is == shape::statement);
    const auto literals = literalsOf(text);
    require(!isClosed(literals) || holdsInOrder(literalsOf(first.text), literals));
    return 0;
}
