#include "platform/messages.h"
#include "platform/strconv.h"

#include "NORLEX_host.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace {

struct boxes {
    std::mutex mutex;
    std::function<void(const std::wstring&)> error;
    std::function<bool(const std::wstring&)> yesNo;
};

boxes& current() {
    static boxes one;
    return one;
}

// A copy, called outside the lock: a box may itself replace a box, or wait for another thread.
template <class Box>
Box copyOf(Box boxes::*box) {
    boxes& b = current();
    const std::scoped_lock lock(b.mutex);
    return b.*box;
}

template <class Box>
void replace(Box boxes::*box, Box with) {
    boxes& b = current();
    const std::scoped_lock lock(b.mutex);
    std::swap(b.*box, with);
}

} // namespace

namespace messages {

void showError(const std::wstring& text) {
    if (const auto box = copyOf(&boxes::error)) {
        box(text);
        return;
    }
    const std::string line = ts::strconv::toUtf8(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

bool askYesNo(const std::wstring& text) {
    const auto box = copyOf(&boxes::yesNo);
    return box && box(text);
}

} // namespace messages

void NORLEX_setErrorBox(std::function<void(const std::wstring&)> box) {
    replace(&boxes::error, std::move(box));
}

void NORLEX_setYesNoBox(std::function<bool(const std::wstring&)> box) {
    replace(&boxes::yesNo, std::move(box));
}
