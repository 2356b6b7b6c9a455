#pragma once

#include "batch/BatchItem.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <vector>

namespace vexa {

/// What goes on paper for the operator of the tape machine: a copy of the list, which stays as it
/// is while pages are made of it, on any thread.
struct ReelSheet {
    struct Row {
        BatchItem item;
        QDateTime striped; ///< when a run brought it to its end; null when none did
    };

    QString listName;
    QDateTime made;
    std::vector<Row> rows; ///< by reel, those of a reel in the order of the list

    /// stripedAt: null for an item that was not striped.
    static ReelSheet of(const BatchItems& items, const QString& listName, const QDateTime& made,
                        const std::function<QDateTime(const BatchItemRef&)>& stripedAt);
};

} // namespace vexa
