#pragma once

#include "batch/BatchItem.h"

#include <QMimeData>

namespace vexa {

/// Rows on the clipboard: text between tabs, and comma-separated text. Either is written when a
/// program asks for it, of the items as they were when they were copied.
class RowsMimeData : public QMimeData {
    Q_OBJECT

public:
    explicit RowsMimeData(const BatchItems& items);

    QStringList formats() const override;
    bool hasFormat(const QString& mimeType) const override;

    /// The text in which another program, or this one, offers rows; the best where it offers more
    /// than one.
    static QString rowsText(const QMimeData& data);

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    BatchItems m_items;
};

} // namespace vexa
