// The container that the steps of an input work on, what it was before, and what must hold of it.
#pragma once

#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"
#include "NORLEX_wellProperty.h"
#include "fuzz/container/choices.h"

#include <map>
#include <memory>
#include <string>

namespace fuzzContainer {

// What a step came to.
enum class outcome {
    done,
    refused, // by the library, which must say why and leave the container as it was
    asked,   // nothing was to be changed
};

// The header of the database and the bytes of the files beside it, by path.
using content = std::map<std::wstring, std::string>;

class world {
public:
    // A copy of one of the prepared containers: an empty one, and one with some of everything.
    explicit world(bool isEmpty);
    ~world();
    world(const world&) = delete;
    world& operator=(const world&) = delete;

    [[nodiscard]] NORLEX_wellContainer& container() { return *m_container; }
    [[nodiscard]] odbc_database* db() { return m_container->getBaseLink(); }
    [[nodiscard]] std::wstring scratch(const std::wstring& name) const; // a path beside it

    void close();
    void open(); // must succeed

    // Transactions of the steps' own, so that nothing is asked of them that they refuse.
    void begin();
    outcome end();
    void rollback();
    [[nodiscard]] bool isInTransaction() const { return m_level > 0; }

    // Keeps objects open while the steps go on. They follow what is announced: a step that is
    // silent about its change lets go of them first.
    void hold(const NORLEX_wellDescription& well, const NORLEX_propDescription& prop);
    void letGo();
    [[nodiscard]] bool announced(bool isAnnounced) { // lets go of them where it is not
        if (!isAnnounced)
            letGo();
        return isAnnounced;
    }

    // What holds after every step, and after the last one, too, where more is looked at.
    void check(outcome last);
    void checkAll();

    // What was asked of the library so far: printed when something does not hold.
    static void beginStep(const std::wstring& name);
    static void tell(const std::wstring& line);

    [[nodiscard]] content takeContent() const;

private:
    void checkUnchanged();
    void checkHeld();
    [[nodiscard]] std::wstring path() const;

    std::unique_ptr<NORLEX_wellContainer> m_container;
    int m_level = 0;
    bool m_isDoomed = false; // a statement failed in an open level
    content m_before;        // outside of transactions
    std::unique_ptr<NORLEX_well> m_well;
    std::unique_ptr<NORLEX_wellProperty> m_property; // of the well, with its survey
};

// Prints the steps and ends the process.
[[noreturn]] void fail(const std::string& what);
inline void require(bool holds, const char* what) {
    if (!holds)
        fail(what);
}

} // namespace fuzzContainer
