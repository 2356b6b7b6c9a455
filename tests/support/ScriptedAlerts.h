#pragma once

#include "engine/outlets.h"

#include <deque>
#include <functional>
#include <vector>

namespace vexa::test {

/// Answers alerts as scripted, otherwise by the first button, and records them.
class ScriptedAlerts final : public Alerts {
public:
    int runModal(const Alert& alert) override {
        shown.push_back(alert);
        if (whileShown)
            whileShown();
        if (answers.empty())
            return alertFirstButton;
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::vector<Alert> shown;
    std::deque<int> answers;
    std::function<void()> whileShown;
};

} // namespace vexa::test
