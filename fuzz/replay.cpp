// Gives every file of the named folders to a fuzz target, once.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int replay(const std::filesystem::path& folder) {
    int files = 0;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        std::ifstream in(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        std::printf("%s\n", entry.path().filename().c_str());
        std::fflush(stdout); // the last name is the culprit's when the target ends the process
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++files;
    }
    return files;
}

} // namespace

int main(int count, char** arguments) {
    int files = 0;
    for (int i = 1; i < count; ++i)
        files += replay(arguments[i]);
    if (files == 0)
        std::fprintf(stderr, "no seeds found\n");
    return files == 0;
}
