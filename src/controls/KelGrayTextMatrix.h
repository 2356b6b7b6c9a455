#pragma once

#include "engine/outlets.h"

#include <QButtonGroup>
#include <QWidget>

#include <string_view>

namespace vexa {

/// A group of buttons with gray captions, one of which is on. Its cells are its child buttons with
/// a "tag" property; one whose "transparent" property is true keeps its colour. Tab enters at the
/// cell that is on, and the next Tab leaves the group. A click does not take the focus.
class KelGrayTextMatrix : public QWidget, public RadioMatrix {
    Q_OBJECT

public:
    explicit KelGrayTextMatrix(QWidget* parent = nullptr);

    /// Appends a radio cell, named by its caption.
    QAbstractButton& addCell(std::uint64_t tag, std::string_view caption);

    /// Call once, after loading the window description and adding all cells.
    void awakeFromNib();

    void selectCellWithTag(std::uint64_t tag) override;
    std::uint64_t selectedTag() const override;
    void switchSelectedCellOff() override;
    void setMatrixEnabled(bool enabled) override { setEnabled(enabled); }
    void setCellEnabled(std::uint64_t tag, bool enabled) override;

    /// Null if there is no such cell.
    QAbstractButton* cellWithTag(std::uint64_t tag) const;

Q_SIGNALS:
    /// The operator chose a cell, possibly the one already on.
    void action();

protected:
    bool eventFilter(QObject* cell, QEvent* event) override;

private:
    void letTabReachSelectedCell();

    QButtonGroup m_cells;
};

} // namespace vexa
