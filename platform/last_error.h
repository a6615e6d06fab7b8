// Sets the line that NORLEX_lastError() answers.
#pragma once

#include <string>

// Keeps `line` as this thread's last error and answers false, so that a refusal reads
// `return refuse(L"…")`. Set it where the refusal is decided, once.
//
// Control characters are spelled as escapes, and of a very long line the middle is left out.
bool refuse(const std::wstring& line);

// Keeps the line that is set as it is made, whatever is refused in its life: the reason of a
// refusal, while what was begun is cleared away.
class keptReason {
public:
    keptReason();
    ~keptReason();
    keptReason(const keptReason&) = delete;
    keptReason& operator=(const keptReason&) = delete;

private:
    std::wstring m_line;
};
