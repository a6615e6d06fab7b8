// Tells and asks the user through the host's boxes.
#pragma once

#include <string>

namespace messages {

void showError(const std::wstring& text);
[[nodiscard]] bool askYesNo(const std::wstring& text); // no, without a host to ask

} // namespace messages
