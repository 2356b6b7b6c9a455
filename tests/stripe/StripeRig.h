#pragma once

#include "stripe/StripeRun.h"
#include "support/ManualRunLoop.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <string>
#include <utility>
#include <vector>

namespace vexa::test {

inline std::uint64_t packed(const char* text) { return pack(timecodeFromText(text).value()); }
inline std::string text(std::uint64_t time) { return timecodeText(time); }

/// Records the generator's orders: "stop", "run 01:00:00:00 rate 1 type 0".
class NotingLink final : public GeneratorLink {
public:
    void stop() override { m_sent.emplace_back("stop"); }
    void run(const StripeSettings& settings) override {
        m_sent.push_back("run " + text(settings.startTime) + " rate " +
                         std::to_string(settings.frameRate) + " type " +
                         std::to_string(settings.syncType));
    }
    std::vector<std::string> take() { return std::exchange(m_sent, {}); }

private:
    std::vector<std::string> m_sent;
};

/// A run with its own list and manually advanced time.
struct StripeRig {
    StripeRig() {
        plan.delayInSeconds = 5;
        plan.pauseForReelChange = true;
        const auto phase = [this] { return run.progress().phase; };
        QObject::connect(&run, &StripeRun::phaseChanged, &run,
                         [this, phase] { told.push_back(name(phase())); });
        QObject::connect(&run, &StripeRun::itemTaken, &run, [this] {
            const auto& item = run.progress().item;
            told.push_back("took " + (item ? item->title.toStdString() : "nothing"));
        });
        QObject::connect(
            &run, &StripeRun::itemLeft, &run, [this](const BatchItemRef& item, bool finished) {
                told.push_back((finished ? "finished " : "left ") + item->title.toStdString());
            });
        QObject::connect(&run, &StripeRun::pauseEnded, &run,
                         [this] { told.emplace_back("pause ended"); });
        QObject::connect(&run, &StripeRun::reelNeeded, &run, [this](std::uint64_t reel) {
            told.push_back("reel " + std::to_string(reel));
        });
        QObject::connect(&run, &StripeRun::ended, &run, [this](StripeRun::End how) {
            told.emplace_back(how == StripeRun::End::noItemLeft ? "none left" : "at its end");
        });
    }

    /// An item of three frames at 25 frames a second.
    void addItem(std::uint64_t reel, const char* title, std::uint64_t hour) {
        const auto start = hour << 24;
        list.addItemWithReel(reel, QString::fromLatin1(title),
                             {start, start + 3, rate::fps25, sync::mtc});
    }

    void tick(int times = 1) {
        while (times-- > 0)
            runLoop.fireTimerOf(
                RunLoop::Seconds(frameRateForCode(plan.settings.frameRate).frameInterval));
    }
    void endPause() { runLoop.advance(RunLoop::Seconds(plan.delayInSeconds)); }
    std::uint64_t state() const { return transportStateOf(run.progress()); }

    static std::string name(Phase phase) {
        switch (phase) {
        case Phase::stopped:
            return "stopped";
        case Phase::running:
            return "running";
        case Phase::paused:
            return "paused";
        case Phase::betweenItems:
            return "between items";
        case Phase::awaitingReel:
            return "awaiting reel";
        }
        return {};
    }

    ManualRunLoop runLoop;
    VexaBatchStripeData list{nullptr};
    NotingLink link;
    StripePlan plan;
    StripeRun run{runLoop, list, link, plan};
    std::vector<std::string> told; ///< every signal but the ticks
};

} // namespace vexa::test
