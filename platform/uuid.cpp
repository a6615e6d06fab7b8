#include "platform/uuid.h"

#include <uuid/uuid.h>

#include <array>

std::wstring newUuid() {
    uuid_t bytes;
    uuid_generate_random(bytes);
    std::array<char, UUID_STR_LEN> text{}; // with a NUL at its end
    uuid_unparse_lower(bytes, text.data());
    return {text.begin(), text.end() - 1};
}
