// ltc_samples SAMPLE_RATE COUNT: writes the first samples of linear timecode at 30 frames and full
// scale to standard output, as floats. scripts/ltc-picture draws them.

#include "ltc/ltc_signal.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

int main(int argc, char* argv[]) {
    using namespace vexa;
    if (argc != 3)
        return EXIT_FAILURE;
    const auto sampleRate = static_cast<std::uint32_t>(std::stoul(argv[1]));
    std::vector<float> samples(std::stoul(argv[2]));
    LtcSignal signal(sampleRate, 0);
    signal.start({{1, 0, 0, 0}, frameRateForCode(rate::fps30)});
    signal.render(samples);
    const auto written = std::fwrite(samples.data(), sizeof(float), samples.size(), stdout);
    return written == samples.size() ? EXIT_SUCCESS : EXIT_FAILURE;
}
