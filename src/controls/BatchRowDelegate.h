#pragma once

#include <QStyledItemDelegate>

namespace vexa {

/// Paints the cells of the batch table: text aligned with the header's titles, and in the first
/// column a mark for how far a run has got with the row.
class BatchRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The width of a mark in the first column, in pixels.
    static constexpr int signWidth = 16;

    /// The part of each section that separates columns, in pixels.
    void setSpacing(int spacing) { m_spacing = spacing; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Fills an editor when it opens. An open one keeps its text, even if its row or the row's mark
    /// changes.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// Shows a text in full if its cell cuts it off.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    int m_spacing = 0;
};

} // namespace vexa
