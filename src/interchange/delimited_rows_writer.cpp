#include "interchange/delimited_rows.h"
#include "interchange/formula_guard.h"
#include "interchange/latin1.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <QStringList>

#include <algorithm>

namespace vexa {

namespace {

class Writer {
public:
    explicit Writer(QChar delimiter) : m_delimiter(delimiter) {}

    void writeRow(const QStringList& fields) {
        m_text += fields.join(m_delimiter);
        m_text += u'\n';
    }

    QString quotedWhereNeeded(const QString& text) const {
        const bool needed = std::ranges::any_of(text, [this](QChar letter) {
            return letter == m_delimiter || letter == u'"' || letter == u'\n' || letter == u'\r' ||
                   letter == u'\t';
        });
        if (!needed)
            return text;
        auto quoted = text;
        quoted.replace(u'"', QLatin1String("\"\""));
        return u'"' + quoted + u'"';
    }

    QString text() && { return std::move(m_text); }

private:
    QChar m_delimiter;
    QString m_text;
};

QString timeText(std::uint64_t packed) { return latin1(timecodeText(packed)); }

} // namespace

QString delimitedText(const BatchItems& items, QChar delimiter) {
    Writer writer(delimiter);
    writer.writeRow({QStringLiteral("Reel"), QStringLiteral("Title"), QStringLiteral("Start"),
                     QStringLiteral("Stop"), QStringLiteral("Rate"), QStringLiteral("Sync")});
    for (const auto& item : items)
        writer.writeRow(
            {QString::number(item->reel), writer.quotedWhereNeeded(withFormulaGuard(item->title)),
             timeText(item->start), timeText(item->stop), latin1(frameRateForCode(item->rate).name),
             latin1(syncTypeName(item->type))});
    return std::move(writer).text();
}

} // namespace vexa
