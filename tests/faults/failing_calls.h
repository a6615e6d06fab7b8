// Lets the N-th call that changes files below a folder fail, whichever library makes it.
//
// The test program defines libc's calls itself and passes them on, so that those of the engine and
// of the standard library are met too. Writes of libc's own buffered files do not come through
// `write`: they fail where they are given (fwrite, fflush, fclose).
#pragma once

#include "tests/faults/every_fault.h"

#include <cstddef>
#include <string>

namespace failing {

enum class trouble : std::size_t {
    once,   // one call, whichever it is: EIO
    full,   // the disk: whatever needs room, from then on: ENOSPC
    denied, // the folder: making, opening for writing, moving, removing, from then on: EACCES
    gone,   // the device: every call from then on: EIO
};
// One at a time. While it lives, nothing below the folder is flushed to the disk: what is tested
// is what calls answer, and a flush takes longer than all the rest.
class calls final : public faultSource {
public:
    explicit calls(const std::wstring& folder); // a full path
    ~calls() override;
    calls(const calls&) = delete;
    calls& operator=(const calls&) = delete;

    [[nodiscard]] std::size_t manners() const override { return 4; } // each trouble is one
    [[nodiscard]] std::string nameOf(std::size_t manner) const override;

    // Only calls that the trouble may meet are counted, those of all threads.
    void failAt(std::size_t manner, std::size_t n) override;
    void failAt(trouble what, std::size_t n) { failAt(static_cast<std::size_t>(what), n); }
    void stop() override;

    // With the path as it is in the folder.
    [[nodiscard]] std::string fault() const override;
    [[nodiscard]] bool leavesFiles() const override; // a removal failed, or a later move
};

} // namespace failing
