#pragma once

#include "engine/outlets.h"

#include <QButtonGroup>
#include <QWidget>

#include <string_view>

namespace vexa {

/// A group of buttons of which one is on, with gray captions. Its cells are the buttons inside it
/// that have a "tag" property; one with a true "transparent" property keeps its colour. Tab reaches
/// the cell that is on, and the next one leaves the group; a click leaves the keyboard where it is.
class KelGrayTextMatrix : public QWidget, public RadioMatrix {
    Q_OBJECT

public:
    explicit KelGrayTextMatrix(QWidget* parent = nullptr);

    /// Puts a radio cell behind the others. Its name is its caption.
    QAbstractButton& addCell(std::uint64_t tag, std::string_view caption);

    /// Call once, when the window description has been loaded and has all its cells.
    void awakeFromNib();

    void selectCellWithTag(std::uint64_t tag) override;
    std::uint64_t selectedTag() const override;
    void switchSelectedCellOff() override;
    void setMatrixEnabled(bool enabled) override { setEnabled(enabled); }
    void setCellEnabled(std::uint64_t tag, bool enabled) override;

    /// Null when there is no such cell.
    QAbstractButton* cellWithTag(std::uint64_t tag) const;

Q_SIGNALS:
    /// The operator chose a cell, perhaps the one that was on already.
    void action();

protected:
    bool eventFilter(QObject* cell, QEvent* event) override;

private:
    void letTabReachSelectedCell();

    QButtonGroup m_cells;
};

} // namespace vexa
