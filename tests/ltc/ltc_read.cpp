// ltc_read SAMPLE_RATE: reads a recording of 16-bit samples and prints a line for each word that
// libltc decodes: "01:00:00:00", or "01:00:00:00 df" with the drop-frame bit.

#include "ltc/ltc_reader.h"

#include <cstdint>
#include <iostream>
#include <string>

int main(int argc, char* argv[]) {
    using namespace vexa;
    if (argc != 2)
        return EXIT_FAILURE;
    std::vector<float> samples;
    std::int16_t sample = 0;
    while (std::cin.read(reinterpret_cast<char*>(&sample), sizeof sample))
        samples.push_back(static_cast<float>(sample) / 32768);
    const auto sampleRate = static_cast<std::uint32_t>(std::stoul(argv[1]));
    for (const auto& word : test::wordsIn(samples, sampleRate, frameRateForCode(rate::fps25)))
        std::cout << timecodeText(word.time) << (word.dropFrame ? " df\n" : "\n");
}
