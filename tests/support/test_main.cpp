// The tests as a host runs the library: in a locale of its own, which WELLDB_TEST_LOCALE names.
#include "killed_child.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const char* const name = std::getenv("WELLDB_TEST_LOCALE");
    if (name != nullptr && std::setlocale(LC_ALL, name) == nullptr) {
        std::fprintf(stderr, "there is no locale %s\n", name);
        return EXIT_FAILURE;
    }
    std::setlocale(LC_MESSAGES, "C"); // what other libraries say is looked for in English
    if (killedChild::run(argc, argv))
        return EXIT_SUCCESS;
    return RUN_ALL_TESTS();
}
