#pragma once

#include "batch/BatchItem.h"

#include <QMimeData>

#include <functional>

namespace vexa {

/// Text from a clipboard.
struct OfferedText {
    qsizetype size;                ///< in bytes or characters, roughly
    std::function<QString()> text; ///< may be called on any thread, and can take a while
};

/// Rows for the clipboard, as tab-separated and comma-separated text. Each is written on request,
/// from the items as they were when copied.
class RowsMimeData : public QMimeData {
    Q_OBJECT

public:
    explicit RowsMimeData(const BatchItems& items);

    QStringList formats() const override;
    bool hasFormat(const QString& mimeType) const override;

    /// The rows that this or another program offers as text, in the best of the formats offered.
    static OfferedText rowsText(const QMimeData& data);

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    BatchItems m_items;
};

} // namespace vexa
