// A correlation as it is named on the command line.
#pragma once

#include "cli/open_container.h"

#include "NORLEX_propDescription.h"

#include <optional>
#include <string>

class odbc_database;

// GROUP/NAME, or NAME: of the group in which the correlation is shown, where it is.
[[nodiscard]] std::optional<NORLEX_propDescription> correlationNamed(odbc_database* db,
                                                                     const std::wstring& reference);

// One that is there, with its container, which it must not outlive.
struct openedCorrelation {
    std::unique_ptr<NORLEX_wellContainer> container;
    std::optional<NORLEX_propDescription> description; // none when either was not found

    explicit operator bool() const { return description.has_value(); }
    [[nodiscard]] odbc_database* db() const { return container->getBaseLink(); }
};
[[nodiscard]] openedCorrelation openCorrelation(const std::wstring& file,
                                                const std::wstring& reference);
