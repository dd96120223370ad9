// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a fuzz target on the files of its corpus, in alphabetical order: the seeds and the inputs of all findings.
// Requires no libFuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argumentCount, char ***arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int main(int argc, char **argv)
{
    std::vector<std::filesystem::path> inputs;
    for (const auto &entry : std::filesystem::directory_iterator(QUORRA_FUZZ_CORPUS)) {
        inputs.push_back(entry.path());
    }
    std::sort(inputs.begin(), inputs.end());
    if (inputs.empty()) {
        std::cerr << "no inputs in " << QUORRA_FUZZ_CORPUS << "\n";
        return 1;
    }
    LLVMFuzzerInitialize(&argc, &argv);
    for (const std::filesystem::path &input : inputs) {
        std::cout << input.filename().string() << std::endl;
        std::ifstream file(input, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    }
    std::cout << inputs.size() << " inputs replayed\n";
    return 0;
}
