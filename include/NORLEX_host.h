// What a host application may replace: message boxes, progress, language and texts.
#pragma once

#include "NORLEX_export.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

enum class NORLEX_language : int { russian = 0, english = 1 };

// Display texts of enumerations, default field names and messages. Russian until changed. The
// language decides what new containers are filled with: choose it before creating one.
NORLEX_API void NORLEX_setLanguage(NORLEX_language language);

// The text of the string table under `id`; empty when there is none.
[[nodiscard]] NORLEX_API std::wstring NORLEX_getText(unsigned int id);

// Replaces one text of the table in the current language.
NORLEX_API void NORLEX_setText(unsigned int id, const std::wstring& text);

// Called with a message for the user. Without one, messages go to standard error. An empty
// function restores that.
NORLEX_API void NORLEX_setErrorBox(std::function<void(const std::wstring&)> box);

// Called with a question. Without one, every question is answered no.
NORLEX_API void NORLEX_setYesNoBox(std::function<bool(const std::wstring&)> box);

// Watches long operations and may stop them. Called on the thread that does the work.
class NORLEX_API NORLEX_progressSink {
public:
    virtual ~NORLEX_progressSink() = default;
    virtual void begin(const std::wstring& title, std::uint64_t total) = 0; // total 0: unknown
    virtual void advance(std::uint64_t done) = 0;
    virtual void end() = 0;
    // True ends the operation at its next safe point; what was done so far stays whole.
    [[nodiscard]] virtual bool isStopped() = 0;
};

// Shared: a running operation keeps the sink it began with. Null for silence, the default.
NORLEX_API void NORLEX_setProgressSink(std::shared_ptr<NORLEX_progressSink> sink);
