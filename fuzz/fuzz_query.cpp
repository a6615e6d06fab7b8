// Any text as a query: refused with a column, or read so that its text reads back the same.
#include "NORLEX_lastError.h"
#include "NORLEX_queryText.h"
#include "fuzz/require.h"
#include "platform/strconv.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace {

void requireColumn() {
    require(NORLEX_lastError().find(L"column ") != std::wstring::npos);
}

void asSelection(const std::wstring& text) {
    std::vector<NORLEX_query> queries;
    if (!NORLEX_parseSelectionText(text, queries))
        return requireColumn();
    std::vector<NORLEX_query> again;
    const std::wstring written = NORLEX_selectionText(queries);
    if (!written.empty())
        require(NORLEX_parseSelectionText(written, again) && again == queries);
    for (const auto& query : queries)
        require(!query.getName().empty());
}

void asFilter(const std::wstring& text) {
    TreeNode<filterCondition> tree;
    if (!NORLEX_parseFilterText(text, tree))
        return requireColumn();
    const std::wstring written = NORLEX_filterText(tree);
    TreeNode<filterCondition> again;
    require(NORLEX_parseFilterText(written, again) && NORLEX_filterText(again) == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text =
        ts::strconv::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    asSelection(text);
    asFilter(text);
    return 0;
}
