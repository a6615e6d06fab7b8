// The file that a new container takes the place of.
//
// It is set aside under another name while the new one is made, and comes back when that fails.
// Once the new container stands it goes, and with it the sample files of its wells: the new
// container must not find them under its own. Whatever else lies in the file directory stays: the
// journal, plot templates, files that other programs put there.
#pragma once

#include "NORLEX_contDescription.h"

#include <string>
#include <vector>

class replacedContainer {
public:
    explicit replacedContainer(const NORLEX_contDescription& description);

    // False, and the file is as it was, when it is in use. Without a file there is nothing to do.
    [[nodiscard]] bool setAside();

    void discard(); // the new container stands
    void restore(); // it was not made: removes what there is of it

private:
    [[nodiscard]] bool readOld();
    void removeWithFolders(const std::wstring& file) const;
    void removeEmptyFolders(const std::wstring& folder) const;

    NORLEX_contDescription m_description;
    std::wstring m_aside; // empty: there was no file
    std::vector<std::wstring> m_wellFolders;
    std::vector<std::wstring> m_plotTemplates; // those that were there
    bool m_hadFolder;
    bool m_wasContainer = false;
};
