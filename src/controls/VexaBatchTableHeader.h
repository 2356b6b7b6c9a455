#pragma once

#include <QColor>
#include <QFont>
#include <QHeaderView>

namespace vexa {

/// The header of the batch table: small gray titles between thin dividers, on a dark ground.
class VexaBatchTableHeader : public QHeaderView {
    Q_OBJECT

public:
    struct TextAttributes {
        QFont font;
        QColor color;
    };

    explicit VexaBatchTableHeader(QWidget* parent = nullptr);

    const TextAttributes& lucida10gray() const { return m_lucida10gray; }

    /// The part of each section that separates columns, in whole pixels. A column is narrower than
    /// its section by this much.
    int spacing() const { return m_spacing; }
    void setSpacing(int spacing) { m_spacing = spacing; }
    int columnWidth(int column) const { return sectionSize(column) - m_spacing; }

    /// Paints titles and dividers without the ground, for columns that start at the left of bounds.
    void drawRect(QPainter& painter, const QRectF& bounds) const;

Q_SIGNALS:
    /// The mouse button was released, perhaps after resizing a column.
    void released();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// Measures the font that is painted, not the style's bold one.
    QSize sectionSizeFromContents(int column) const override;

private:
    QString title(int column) const;

    TextAttributes m_lucida10gray;
    int m_spacing = 0;
};

} // namespace vexa
