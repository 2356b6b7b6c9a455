// ltc_read SAMPLE_RATE: reads a recording of 16-bit samples and prints a line for each word that
// libltc decodes: "01:00:00:00", or "01:00:00:00 df" with the drop-frame bit.

#include "ltc/ltc_reader.h"

#include <array>
#include <cstdint>
#include <iostream>
#include <string>

int main(int argc, char* argv[]) {
    using namespace vexa;
    if (argc != 2)
        return EXIT_FAILURE;
    const auto sampleRate = static_cast<std::uint32_t>(std::stoul(argv[1]));
    test::LtcReader reader(sampleRate, frameRateForCode(rate::fps25));
    std::array<std::int16_t, 4096> samples{};
    std::vector<float> block;
    do {
        std::cin.read(reinterpret_cast<char*>(samples.data()), sizeof samples);
        const auto count = static_cast<std::size_t>(std::cin.gcount()) / sizeof samples[0];
        block.clear();
        for (const auto sample : std::span(samples).first(count))
            block.push_back(static_cast<float>(sample) / 32768);
        for (const auto& word : reader.read(block))
            std::cout << timecodeText(word.time) << (word.dropFrame ? " df\n" : "\n");
    } while (std::cin);
}
