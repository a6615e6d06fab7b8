#include "exchange/curve_types.h"

#include "NORLEX_curveIdentification.h"
#include "platform/strconv.h"

#include <utility>
#include <vector>

namespace {

// The name without "_" and digits at its end; as it is without them.
std::wstring withoutNumber(const std::wstring& name) {
    const std::size_t before = name.find_last_not_of(L"0123456789");
    const bool isNumbered =
        before != std::wstring::npos && before + 1 < name.size() && name[before] == L'_';
    return isNumbered ? name.substr(0, before) : name;
}

} // namespace

curveTypes::curveTypes() {
    const NORLEX_curveIdentification catalogue;
    for (auto& curve : catalogue.getAllCurves())
        m_mnemonics.try_emplace(ts::strconv::lower(curve.mnemonic), std::move(curve.type));
    std::vector<std::pair<std::wstring, std::wstring>> synonyms;
    catalogue.getSynonymList(synonyms);
    for (const auto& [mnemonic, synonym] : synonyms)
        if (const auto known = m_mnemonics.find(ts::strconv::lower(mnemonic));
            known != m_mnemonics.end())
            m_synonyms.try_emplace(synonym, known->second);
}

const std::wstring* curveTypes::find(const std::wstring& name) const {
    const auto known = m_mnemonics.find(ts::strconv::lower(name));
    if (known != m_mnemonics.end())
        return &known->second;
    const auto synonym = m_synonyms.find(name);
    return synonym == m_synonyms.end() ? nullptr : &synonym->second;
}

std::wstring curveTypes::of(const std::wstring& mnemonic) const {
    const std::wstring* type = find(mnemonic);
    if (type == nullptr)
        type = find(withoutNumber(mnemonic));
    return type == nullptr ? std::wstring() : *type;
}
