// Which kind of log a curve's name means, by the shipped catalogue of curves.
#pragma once

#include <string>
#include <unordered_map>

// The catalogue is read once as a whole: an import asks for each curve of each of its files.
// Without the catalogue every answer is empty.
class curveTypes {
public:
    curveTypes();

    // Of a mnemonic as a file has it; empty when the catalogue does not know it. GR_2 is known as
    // GR: an exact export writes a file's second GR so.
    [[nodiscard]] std::wstring of(const std::wstring& mnemonic) const;

private:
    [[nodiscard]] const std::wstring* find(const std::wstring& name) const;

    std::unordered_map<std::wstring, std::wstring> m_mnemonics; // in lower case
    std::unordered_map<std::wstring, std::wstring> m_synonyms;  // as written
};
