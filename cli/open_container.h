// Opens what the commands work on; each says why when it cannot.
#pragma once

#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

// The description of a path, with the credentials of a server; nothing when they are missing.
[[nodiscard]] std::optional<NORLEX_contDescription> describeContainer(const std::wstring& path);

// Null when it cannot be opened.
[[nodiscard]] std::unique_ptr<NORLEX_wellContainer> openContainer(const std::wstring& path);

// A well with its container, which it must not outlive.
struct openedWell {
    std::unique_ptr<NORLEX_wellContainer> container;
    std::unique_ptr<NORLEX_well> well; // null when either was not found

    explicit operator bool() const { return well != nullptr; }
};
[[nodiscard]] openedWell openWell(const std::wstring& path, const std::wstring& reference);

// `change` in one transaction of the container, which is undone when it answers false.
[[nodiscard]] bool editIn(NORLEX_wellContainer& container, const std::function<bool()>& change);
