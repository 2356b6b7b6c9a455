#pragma once

#include "batch/BatchItem.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <vector>

namespace vexa {

/// The list on paper, for the operator of the tape machine. It is a copy that does not change, so
/// any thread can make pages of it.
struct ReelSheet {
    struct Row {
        BatchItem item;
        QDateTime striped; ///< when a run finished it; null if none has
    };

    QString listName;
    QDateTime made;
    std::vector<Row> rows; ///< by reel, and in list order within a reel

    /// stripedAt: returns null for an item that was not striped.
    static ReelSheet of(const BatchItems& items, const QString& listName, const QDateTime& made,
                        const std::function<QDateTime(const BatchItemRef&)>& stripedAt);
};

} // namespace vexa
