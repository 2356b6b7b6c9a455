#include "interchange/RowTaker.h"

#include "timecode/frame_rate.h"

#include <string>

namespace vexa {

QString RowTaker::takeOrRefuse(const WrittenRow& written) {
    if (!written.refusal.isNull())
        return written.refusal;
    const bool isDropFrame = written.start.isDropFrame || written.stop.isDropFrame;
    const auto told = isDropFrame && !written.rate ? std::optional(rate::fps30Drop) : written.rate;
    const auto code = told.value_or(m_options.rate);
    const auto& rate = frameRateForCode(code);
    for (const auto& [name, time] :
         {std::pair{"start", written.start.time}, std::pair{"stop", written.stop.time}})
        if (const auto reason = refusal(time, rate); !reason.empty())
            return QStringLiteral("%1 time: %2")
                .arg(QLatin1String(name), QString::fromStdString(reason));
    m_result.assumedRate |= !told;
    m_result.assumedType |= !written.type;
    m_result.rows.push_back({written.line,
                             written.reel.value_or(written.start.time.hours),
                             written.title,
                             {pack(written.start.time), pack(written.stop.time), code,
                              written.type.value_or(m_options.type)}});
    return {};
}

void RowTaker::keepWithinBounds() {
    if (m_result.rows.size() + m_result.refused.size() <= mostRows)
        return;
    m_result = {};
    m_result.fault = QStringLiteral("there are more than %1 rows").arg(mostRows);
}

} // namespace vexa
