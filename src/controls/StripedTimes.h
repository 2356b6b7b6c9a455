#pragma once

#include "batch/BatchItem.h"

#include <QDateTime>
#include <QObject>

#include <unordered_map>

namespace vexa {

class StripeRun;

/// When items were last striped to their end since the program started.
class StripedTimes : public QObject {
    Q_OBJECT

public:
    /// The run must outlive it.
    explicit StripedTimes(const StripeRun& run);

    /// The last time; null if there is none.
    QDateTime of(const BatchItemRef& item) const;

private:
    std::unordered_map<BatchItemRef, QDateTime> m_times;
};

} // namespace vexa
