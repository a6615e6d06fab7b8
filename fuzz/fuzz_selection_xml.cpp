// Any bytes as a selection file and as a filter file: refused, or read so that what is written
// reads back the same. The first file may hold references to signs that XML cannot hold, which are
// replaced when they are written: so it is what was written once that must stay.
#include "NORLEX_dataFilter.h"
#include "NORLEX_queryText.h"
#include "NORLEX_selection.h"
#include "fuzz/require.h"
#include "fuzz/scratch.h"
#include "platform/files.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace {

bool isSame(const NORLEX_selection& a, const NORLEX_selection& b) {
    bool same = a.getFilterCount() == b.getFilterCount() && a.getAddedWells() == b.getAddedWells()
                && a.getDeletedWells() == b.getDeletedWells()
                && a.getGeomWells() == b.getGeomWells() && a.getCustom() == b.getCustom()
                && a.getInvertResult() == b.getInvertResult();
    for (std::size_t i = 0; same && i < a.getFilterCount(); ++i)
        same = a.getFilter(i) == b.getFilter(i);
    return same;
}

void asSelection(const std::wstring& given, const std::wstring& written) {
    NORLEX_selection selection(L"", {});
    if (!selection.load(given))
        return;
    NORLEX_selection first(L"", {}), second(L"", {});
    require(selection.save(written) && first.load(written));
    require(first.save(written) && second.load(written) && isSame(first, second));
}

void asFilter(const std::wstring& given, const std::wstring& written) {
    TreeNode<filterCondition> tree;
    NORLEX_dataFilter filter(nullptr, nullptr, &tree);
    if (!filter.loadFilter(given))
        return;
    require(filter.saveFilter(written) && filter.loadFilter(written));
    const std::wstring first = NORLEX_filterText(tree);
    require(filter.saveFilter(written) && filter.loadFilter(written));
    require(NORLEX_filterText(tree) == first);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const scratchFolder folder("fuzz_selection_xml");
    static const std::wstring given = folder / L"given";
    static const std::wstring written = folder / L"written";
    {
        const files::handle file = files::openWrite(given);
        require(file && files::put(file.get(), {reinterpret_cast<const char*>(data), size}));
    }
    asSelection(given, written);
    asFilter(given, written);
    static_cast<void>(files::removeFile(given));
    static_cast<void>(files::removeFile(written));
    return 0;
}
