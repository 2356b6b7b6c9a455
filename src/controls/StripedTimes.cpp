#include "controls/StripedTimes.h"

#include "stripe/StripeRun.h"

namespace vexa {

StripedTimes::StripedTimes(const StripeRun& run) {
    connect(&run, &StripeRun::itemLeft, this, [this](const BatchItemRef& item, bool finished) {
        if (finished)
            m_times[item] = QDateTime::currentDateTime();
    });
}

QDateTime StripedTimes::of(const BatchItemRef& item) const {
    const auto found = m_times.find(item);
    return found == m_times.end() ? QDateTime() : found->second;
}

} // namespace vexa
