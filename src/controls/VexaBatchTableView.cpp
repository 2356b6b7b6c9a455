#include "controls/VexaBatchTableView.h"

#include "controls/VexaBatchTableHeader.h"
#include "controls/edge_colors.h"
#include "controls/key_characters.h"
#include "defaults/user_defaults.h"
#include "timecode/frame_rate.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>

namespace vexa {

namespace {

constexpr int rowPadding = 6;

/// Fits the longest expected text of the column, in the bold font of the row in progress.
int standardWidth(const QString& column, QFont font) {
    constexpr int padding = 12;
    static const QHash<QString, QString> longest{
        {item_key::reel, QString(9, u'0')},
        {item_key::title, QString(32, u'n')},
        {item_key::start, QStringLiteral("00:00:00:00")},
        {item_key::stop, QStringLiteral("00:00:00:00")},
        {item_key::rate, QString::fromUtf8(longestRateName())},
        {item_key::type, QStringLiteral("MTC")},
        {BatchTableModel::duration, QStringLiteral("00:00:00")}};
    font.setBold(true);
    const int sign = column == item_key::reel ? BatchRowDelegate::signWidth : 0;
    return QFontMetrics(font).horizontalAdvance(longest.value(column)) + sign + padding;
}

} // namespace

VexaBatchTableView::VexaBatchTableView(QWidget* parent) : QTableView(parent) {
    setModel(&m_model);
    setItemDelegate(&m_delegate);
    setSelectionBehavior(SelectRows);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setTabKeyNavigation(false); // Tab leaves the table
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setFrameStyle(Box | Plain);
    takeColorsOfDesktop();
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

/// Not the colours of the light ground around the table.
void VexaBatchTableView::takeColorsOfDesktop() {
    auto colors = QApplication::palette(this);
    colors.setResolveMask(~QPalette::ResolveMask{0});     // inherits none of the parent's
    colors.setColor(QPalette::WindowText, restingEdge()); // the frame's
    setPalette(colors);
}

void VexaBatchTableView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        takeColorsOfDesktop();
}

bool VexaBatchTableView::handleKey(const QString& characters) {
    if (characters.size() != 1 ||
        (characters[0] != typed::backspace && characters[0] != typed::forwardDelete))
        return false;
    return handleDelete();
}

bool VexaBatchTableView::handleDelete() {
    if (!hasSelectedRows())
        return false;
    Q_EMIT vexarowsdeleted();
    return true;
}

RowIndexes VexaBatchTableView::selectedRowIndexes() const {
    RowIndexes rows;
    for (const auto& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.insert(rows.end(), static_cast<std::size_t>(row));
    return rows;
}

std::optional<std::size_t> VexaBatchTableView::onlySelectedRow() const {
    const auto ranges = selectionModel()->selection();
    if (ranges.size() != 1 || ranges.constFirst().height() != 1)
        return {};
    return static_cast<std::size_t>(ranges.constFirst().top());
}

void VexaBatchTableView::selectRows(const RowIndexes& rows) {
    const int lastColumn = m_model.columnCount() - 1;
    QItemSelection selection;
    for (const auto row : rows) {
        const int number = static_cast<int>(row);
        const auto last = m_model.index(number, lastColumn);
        // Merges adjacent rows into one range: selecting slows down with the number of ranges.
        if (!selection.isEmpty() && selection.constLast().bottom() == number - 1)
            selection.last() = QItemSelectionRange(selection.constLast().topLeft(), last);
        else
            selection.append(QItemSelectionRange(m_model.index(number, 0), last));
    }
    const QSignalBlocker quiet(this);
    // In one step, Qt would compare each range with each earlier one.
    selectionModel()->clearSelection();
    selectionModel()->select(selection, QItemSelectionModel::Select);
}

RowIndexes VexaBatchTableView::keyboardRow() const {
    const auto current = currentIndex();
    return current.isValid() ? RowIndexes{static_cast<std::size_t>(current.row())} : RowIndexes{};
}

void VexaBatchTableView::moveKeyboardTo(const RowIndexes& rows) {
    if (rows.empty() || m_model.rowCount() == 0)
        return;
    const auto last = static_cast<std::size_t>(m_model.rowCount() - 1);
    const int row = static_cast<int>(std::min(*rows.begin(), last));
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(m_model.index(row, 0), QItemSelectionModel::NoUpdate);
    setAutoScroll(scrolls);
}

void VexaBatchTableView::commitEditing() {
    const auto title = titleInRowOf(currentIndex());
    if (auto* editor = indexWidget(title)) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

QModelIndex VexaBatchTableView::titleInRowOf(const QModelIndex& index) const {
    return index.siblingAtColumn(titleColumn());
}

int VexaBatchTableView::titleColumn() const {
    return static_cast<int>(m_model.columnIdentifiers().indexOf(item_key::title));
}

void VexaBatchTableView::setColumnIdentifiers(const QStringList& identifiers) {
    m_identifiers = identifiers;
    m_showsDurations = defaults::read().showsDurations.value_or(false);
    showColumns();
}

void VexaBatchTableView::showColumns() {
    m_model.setColumnIdentifiers(
        m_showsDurations ? m_identifiers + QStringList{BatchTableModel::duration} : m_identifiers);
}

void VexaBatchTableView::setShowsDurations(bool shows) {
    commitEditing();
    storeColumnWidths();
    const auto selected = selectedRowIndexes();
    const auto keyboard = keyboardRow();
    m_showsDurations = shows;
    showColumns();
    restoreColumnWidths();
    selectRows(selected);
    moveKeyboardTo(keyboard);
    m_hasSelectedRows = !selected.empty();
    defaults::write({.showsDurations = shows});
}

void VexaBatchTableView::addHeaderMenu() {
    auto* durations = new QAction(tr("Show D&urations"), this);
    durations->setCheckable(true);
    durations->setChecked(m_showsDurations);
    connect(durations, &QAction::triggered, this, &VexaBatchTableView::setShowsDurations);
    m_header->addAction(durations);
    m_header->setContextMenuPolicy(Qt::ActionsContextMenu);
    addAction(durations); // the header cannot have the focus
}

void VexaBatchTableView::editTitle() {
    if (const auto row = onlySelectedRow())
        QTableView::edit(titleInRowOf(m_model.index(static_cast<int>(*row), 0)));
}

void VexaBatchTableView::keyboardSearch(const QString& search) {
    const auto from = currentIndex().isValid() ? currentIndex() : m_model.index(0, 0);
    if (from.isValid())
        selectionModel()->setCurrentIndex(titleInRowOf(from), QItemSelectionModel::NoUpdate);
    QTableView::keyboardSearch(search);
}

void VexaBatchTableView::installHeader() {
    m_header = new VexaBatchTableHeader(this);
    setHorizontalHeader(m_header);
    connect(m_header, &VexaBatchTableHeader::released, this,
            &VexaBatchTableView::storeColumnWidths);
    addHeaderMenu();
}

void VexaBatchTableView::setIntercellSpacing(double width, double height) {
    const int spacing = static_cast<int>(width);
    m_header->setSpacing(spacing);
    m_delegate.setSpacing(spacing);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding +
                                            static_cast<int>(height));
    restoreColumnWidths();
}

void VexaBatchTableView::restoreColumnWidths() {
    constexpr std::int64_t widest = 4000;
    const auto stored = defaults::read().columnWidths;
    m_storedWidths.clear();
    m_header->setSectionResizeMode(titleColumn(), QHeaderView::Stretch);
    for (const auto& column : m_model.columnIdentifiers()) {
        const auto found = stored.find(column);
        const auto width = found != stored.end() ? found->second : standardWidth(column, font());
        const int section = static_cast<int>(m_storedWidths.size());
        m_header->resizeSection(
            section, static_cast<int>(std::clamp<std::int64_t>(
                         width + m_header->spacing(), m_header->minimumSectionSize(), widest)));
        m_storedWidths.push_back(m_header->columnWidth(section));
    }
}

void VexaBatchTableView::storeColumnWidths() {
    Preferences change;
    for (int column = 0; column < m_header->count(); ++column) {
        if (m_header->sectionResizeMode(column) == QHeaderView::Stretch)
            continue; // it takes the width that the others leave
        auto& stored = m_storedWidths[static_cast<std::size_t>(column)];
        const int width = m_header->columnWidth(column);
        if (width == stored)
            continue;
        stored = width;
        change.columnWidths[m_model.columnIdentifiers()[column]] = width;
    }
    if (!change.columnWidths.empty())
        defaults::write(change);
}

void VexaBatchTableView::scrollToItem(const BatchItemRef& item) {
    // After a reload, scroll bars change after this layout but before events queued now.
    executeDelayedItemsLayout();
    QMetaObject::invokeMethod(
        this, [this, item] { scrollTo(m_model.indexOfItem(item)); }, Qt::QueuedConnection);
}

void VexaBatchTableView::markItem(const BatchItemRef& item, StripeMark mark) {
    m_model.markItem(item, mark);
    if (mark == StripeMark::underWay)
        scrollToItem(item);
}

QSize VexaBatchTableView::minimumSizeHint() const {
    constexpr int lines = 3;
    return {QTableView::minimumSizeHint().width(), lines * fontMetrics().height()};
}

void VexaBatchTableView::reset() {
    QTableView::reset();
    m_hasSelectedRows = false;
}

bool VexaBatchTableView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    // An edit key edits the row's title, whichever cell is current.
    return QTableView::edit(trigger == EditKeyPressed ? titleInRowOf(index) : index, trigger,
                            event);
}

void VexaBatchTableView::keyPressEvent(QKeyEvent* event) {
    // By key: platforms differ in the text of editing keys.
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    const bool consumed =
        plain && ((event->key() == Qt::Key_Backspace && handleKey(QChar(typed::backspace))) ||
                  (event->key() == Qt::Key_Delete && handleKey(QChar(typed::forwardDelete))));
    if (!consumed)
        QTableView::keyPressEvent(event);
}

void VexaBatchTableView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (m_model.rowCount() != 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter,
                     tr("No items yet. Set a stop time, then choose Add to List…"));
}

void VexaBatchTableView::selectionChanged(const QItemSelection& selected,
                                          const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    m_hasSelectedRows = selectionModel()->hasSelection();
    Q_EMIT selectionDidChange();
}

} // namespace vexa
