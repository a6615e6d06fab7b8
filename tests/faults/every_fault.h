// Runs an operation over and over, each time with another of its calls failing.
#pragma once

#include "NORLEX_wellContainer.h"
#include "tests/support/content_snapshot.h"
#include "tests/support/disk.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace failing {

// Lets calls of some kind fail, in several manners.
class faultSource {
public:
    virtual ~faultSource() = default;
    [[nodiscard]] virtual std::size_t manners() const = 0;
    [[nodiscard]] virtual std::string nameOf(std::size_t manner) const = 0;

    // Counts from now on; 1 is the next call.
    virtual void failAt(std::size_t manner, std::size_t n) = 0;
    virtual void stop() = 0;
    // The first call that failed since, empty: none did.
    [[nodiscard]] virtual std::string fault() const = 0;
    // What the line of an operation that is refused for it holds.
    [[nodiscard]] virtual std::wstring told(const std::wstring& folder) const { return folder; }
    // What failed may leave a file that should have gone.
    [[nodiscard]] virtual bool leavesFiles() const { return false; }
};

// Works on all that a folder holds as this is made: containers, none of them open, and other files.
//
// Each run begins with the folder as it was. Calls fail until the container is closed, so that
// closing is met too, and then do what they should again. Containers are opened anew for what is
// looked at, since the rollback of the engine, or that of the files, may be what failed: opening
// completes them.
class everyFault {
public:
    everyFault(const temp_folder& folder, faultSource& faults);

    // `run` answers whether it succeeded. The container is the folder's "wells.well2".
    void inside(const std::string& name, const std::function<bool(NORLEX_wellContainer&)>& run);
    void outside(const std::string& name, const std::function<bool()>& run);

    // The ends of the names of files that may be there besides, whatever becomes of the operation.
    void mayStay(std::vector<std::wstring> endings) { m_mayStay = std::move(endings); }

    [[nodiscard]] std::size_t runs() const { return m_runs; } // in which something failed

private:
    using content = contentSnapshot::content;

    bool isThrough(const std::string& name,
                   const std::function<bool()>& run,
                   std::size_t manner,
                   std::size_t n);
    void expectEnd(const std::function<bool()>& run, bool done);
    void begin() const;
    [[nodiscard]] bool stays(const std::wstring& name) const;
    [[nodiscard]] content look(contentSnapshot::detail wanted) const; // what the folder holds
    void addContainer(const std::wstring& path, contentSnapshot::detail wanted, content& all) const;
    [[nodiscard]] content withoutStrays(content all, const content& known) const;
    void expectFiles(const disk::list& expected) const;
    void expectDone(bool isRefused) const;

    const temp_folder& m_folder;
    temp_folder m_kept; // the folder as it was
    faultSource& m_faults;
    std::vector<std::wstring> m_mayStay;
    content m_before;
    content m_after; // as two runs of an operation have it in common
    disk::list m_filesBefore;
    disk::list m_filesAfter;
    std::size_t m_runs = 0;
};

} // namespace failing
