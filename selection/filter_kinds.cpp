#include "NORLEX_filterKinds.h"

#include "platform/string_table.h"

namespace {

std::wstring nameOf(unsigned int before, int number, int last) {
    return number < 1 || number > last
               ? std::wstring()
               : stringTable::text(before + static_cast<unsigned int>(number));
}

} // namespace

std::wstring getFilterTypeName(NORLEX_filterType type) {
    return nameOf(stringTable::filterTypes, type, NORLEX_filterTypeTime);
}

std::wstring getFilterOperationName(NORLEX_filterOperation operation) {
    return nameOf(stringTable::filterOperations, operation, NORLEX_filterEndsWith);
}

std::wstring getWellFilterTypeName(NORLEX_filterWellType type) {
    return nameOf(stringTable::filterWellTypes, type, NORLEX_filterWellLogs);
}
