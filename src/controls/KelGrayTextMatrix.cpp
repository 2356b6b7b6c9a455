#include "controls/KelGrayTextMatrix.h"

#include "controls/gray_caption.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QRadioButton>
#include <QVariant>

#include <limits>

namespace vexa {

KelGrayTextMatrix::KelGrayTextMatrix(QWidget* parent) : QWidget(parent) {
    connect(&m_cells, &QButtonGroup::idClicked, this, &KelGrayTextMatrix::action);
}

QAbstractButton& KelGrayTextMatrix::addCell(std::uint64_t tag, std::string_view caption) {
    const auto text = QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
    auto* cell = new QRadioButton(text, this);
    cell->setObjectName(text);
    cell->setAccessibleName(text);
    cell->setProperty("tag", static_cast<qulonglong>(tag));
    layout()->addWidget(cell);
    return *cell;
}

void KelGrayTextMatrix::awakeFromNib() {
    for (auto* cell : findChildren<QAbstractButton*>()) {
        const auto tag = cell->property("tag");
        if (!tag.isValid())
            continue;
        m_cells.addButton(cell, tag.toInt());
        cell->installEventFilter(this);
        if (!cell->property("transparent").toBool())
            setGrayCaption(*cell);
    }
    connect(&m_cells, &QButtonGroup::idToggled, this, [this] {
        const auto* focused = QApplication::focusWidget();
        if (!focused || focused->parent() != this)
            letTabReachSelectedCell();
    });
    letTabReachSelectedCell();
}

bool KelGrayTextMatrix::eventFilter(QObject*, QEvent* event) {
    // Qt makes the cell with the focus the group's only tab stop.
    if (event->type() == QEvent::FocusOut)
        letTabReachSelectedCell();
    return false;
}

void KelGrayTextMatrix::letTabReachSelectedCell() {
    const auto cells = m_cells.buttons();
    if (cells.isEmpty())
        return;
    const auto* stop = m_cells.checkedButton() ? m_cells.checkedButton() : cells.constFirst();
    for (auto* cell : cells)
        cell->setFocusPolicy(cell == stop ? Qt::TabFocus : Qt::NoFocus);
}

QAbstractButton* KelGrayTextMatrix::cellWithTag(std::uint64_t tag) const {
    // The tag may be any code, but button ids are ints, and -1 means "no id".
    return tag <= std::numeric_limits<int>::max() ? m_cells.button(static_cast<int>(tag)) : nullptr;
}

void KelGrayTextMatrix::selectCellWithTag(std::uint64_t tag) {
    if (auto* cell = cellWithTag(tag))
        cell->setChecked(true);
}

std::uint64_t KelGrayTextMatrix::selectedTag() const {
    const int id = m_cells.checkedId();
    return id >= 0 ? static_cast<std::uint64_t>(id) : 0;
}

void KelGrayTextMatrix::switchSelectedCellOff() {
    auto* cell = m_cells.checkedButton();
    if (!cell)
        return;
    m_cells.setExclusive(false); // an exclusive group cannot uncheck its last button
    cell->setChecked(false);
    m_cells.setExclusive(true);
}

void KelGrayTextMatrix::setCellEnabled(std::uint64_t tag, bool enabled) {
    if (auto* cell = cellWithTag(tag))
        cell->setEnabled(enabled);
}

} // namespace vexa
