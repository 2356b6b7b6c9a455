#pragma once

#include <QColor>
#include <QFont>
#include <QHeaderView>

namespace vexa {

/// The titles of the batch table: small gray type between thin dividers, on a dark ground.
class VexaBatchTableHeader : public QHeaderView {
    Q_OBJECT

public:
    struct TextAttributes {
        QFont font;
        QColor color;
    };

    explicit VexaBatchTableHeader(QWidget* parent = nullptr);

    const TextAttributes& lucida10gray() const { return m_lucida10gray; }

    /// The share of every section that lies between two columns, in whole pixels. A column is as
    /// much narrower than its section.
    int spacing() const { return m_spacing; }
    void setSpacing(int spacing) { m_spacing = spacing; }
    int columnWidth(int column) const { return sectionSize(column) - m_spacing; }

    /// Paints titles and dividers, and no ground, for columns that begin at the left of bounds.
    void drawRect(QPainter& painter, const QRectF& bounds) const;

Q_SIGNALS:
    /// The mouse was let go, perhaps after a column was resized.
    void released();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// By the type that is painted, not by the style's bold one.
    QSize sectionSizeFromContents(int column) const override;

private:
    QString title(int column) const;

    TextAttributes m_lucida10gray;
    int m_spacing = 0;
};

} // namespace vexa
