#include "controls/ReadRowsModel.h"

#include "batch/VexaBatchStripeData.h"
#include "controls/plain_text.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

#include <utility>

namespace vexa {

namespace {

enum class Column { line, reel, title, start, stop, rate, sync, remark };
constexpr int columnCountOfAll = 8;

QString timeText(std::uint64_t packed) {
    return VexaBatchStripeData::timecodeStringFromBCDNumber(packed);
}

} // namespace

void ReadRowsModel::setRows(ReadRows read) {
    beginResetModel();
    m_read = std::move(read);
    m_lines.clear();
    std::size_t row = 0;
    std::size_t refused = 0;
    while (row < m_read.rows.size() || refused < m_read.refused.size()) {
        const bool isRefused =
            row == m_read.rows.size() || (refused < m_read.refused.size() &&
                                          m_read.refused[refused].line < m_read.rows[row].line);
        m_lines.push_back({isRefused, isRefused ? refused++ : row++});
    }
    endResetModel();
}

int ReadRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int ReadRowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCountOfAll;
}

QString ReadRowsModel::text(const ReadRows::Row& row, int column) const {
    const auto& [startTime, stopTime, rateCode, typeCode] = row.settings;
    switch (static_cast<Column>(column)) {
    case Column::line:
        return QString::number(row.line);
    case Column::reel:
        return QString::number(row.reel);
    case Column::title:
        return singleLine(row.title);
    case Column::start:
        return timeText(startTime);
    case Column::stop:
        return timeText(stopTime);
    case Column::rate:
        return QString::fromLatin1(frameRateForCode(rateCode).name);
    case Column::sync:
        return QString::fromLatin1(syncTypeName(typeCode));
    default:
        return tr("will be added");
    }
}

QString ReadRowsModel::text(const ReadRows::Refusal& refusal, int column) const {
    switch (static_cast<Column>(column)) {
    case Column::line:
        return QString::number(refusal.line);
    case Column::title:
        return singleLine(refusal.text);
    case Column::remark:
        return tr("skipped: %1").arg(refusal.reason);
    default:
        return {};
    }
}

QVariant ReadRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const auto [isRefused, place] = m_lines[static_cast<std::size_t>(index.row())];
    return isRefused ? text(m_read.refused[place], index.column())
                     : text(m_read.rows[place], index.column());
}

QVariant ReadRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringList{tr("Line"), tr("Reel"), tr("Title"), tr("Start"),
                       tr("Stop"), tr("Rate"), tr("Sync"),  tr("Result")}
        .value(section);
}

} // namespace vexa
