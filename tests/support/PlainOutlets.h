#pragma once

#include "engine/outlets.h"
#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <functional>
#include <map>
#include <optional>
#include <set>

namespace vexa::test {

// Outlets that store what they are told and give the answers that a test sets.

class PlainRadioMatrix : public RadioMatrix {
public:
    explicit PlainRadioMatrix(std::uint64_t cells) : m_cells(cells) {}
    void selectCellWithTag(std::uint64_t tag) override {
        if (tag < m_cells)
            m_selected = tag;
    }
    std::uint64_t selectedTag() const override { return m_selected.value_or(0); }
    void switchSelectedCellOff() override { m_selected.reset(); }
    void setMatrixEnabled(bool enabled) override { m_enabled = enabled; }
    void setCellEnabled(std::uint64_t tag, bool enabled) override { m_cellEnabled[tag] = enabled; }

    std::optional<std::uint64_t> cellOn() const { return m_selected; }
    bool isEnabled() const { return m_enabled; }
    bool isCellEnabled(std::uint64_t tag) const {
        const auto cell = m_cellEnabled.find(tag);
        return m_enabled && (cell == m_cellEnabled.end() || cell->second);
    }

private:
    std::uint64_t m_cells;
    std::optional<std::uint64_t> m_selected = 0;
    bool m_enabled = true;
    std::map<std::uint64_t, bool> m_cellEnabled;
};

class PlainButton : public Button {
public:
    void setState(bool on) override { m_on = on; }
    bool state() const override { return m_on; }
    void setEnabled(bool enabled) override { m_enabled = enabled; }
    void setHidden(bool hidden) override { m_hidden = hidden; }
    void setToolTip(const QString& text) override { m_toolTip = text; }

    bool isEnabled() const { return m_enabled; }
    bool isHidden() const { return m_hidden; }
    const QString& toolTip() const { return m_toolTip; }

private:
    bool m_on = false;
    bool m_enabled = true;
    bool m_hidden = false;
    QString m_toolTip;
};

class PlainDisplay : public TimecodeEntry {
public:
    explicit PlainDisplay(int tag) : m_tag(tag) {}
    void setBcdValue(std::uint64_t value) override { m_value = static_cast<PackedTimecode>(value); }
    void setFrameRate(const FrameRate& rate) override { m_rate = &rate; }
    void frameRateChanged() override { m_value = advanced(m_value, 0, *m_rate); }
    void setState(int state) override { m_state = state; }
    int state() const override { return m_state; }

    int tag() const { return m_tag; }
    PackedTimecode bcdValue() const { return m_value; }
    const FrameRate& frameRate() const { return *m_rate; }

private:
    int m_tag;
    int m_state = 0;
    PackedTimecode m_value = 0;
    const FrameRate* m_rate = &frameRates[0];
};

class PlainTextField : public TextField {
public:
    void setStringValue(const QString& text) override { m_text = text; }
    const QString& stringValue() const { return m_text; }

private:
    QString m_text;
};

class PlainWindowTitle : public WindowTitle {
public:
    void setTitle(const QString& title) override { m_title = title; }
    const QString& title() const { return m_title; }

private:
    QString m_title;
};

class PlainBatchTable : public BatchTable {
public:
    void commitEditing() override {
        if (onCommit)
            onCommit();
    }
    void reloadData() override {
        m_selected.clear();
        m_keyboardRow.clear();
    }
    bool hasSelectedRows() const override { return !m_selected.empty(); }
    RowIndexes selectedRowIndexes() const override { return m_selected; }
    std::optional<std::size_t> onlySelectedRow() const override {
        return m_selected.size() == 1 ? std::optional(*m_selected.begin()) : std::nullopt;
    }
    void selectRows(const RowIndexes& rows) override { m_selected = rows; }
    RowIndexes keyboardRow() const override { return m_keyboardRow; }
    void moveKeyboardTo(const RowIndexes& rows) override {
        if (!rows.empty())
            m_keyboardRow = {*rows.begin()};
    }
    void setColumnIdentifiers(const QStringList& identifiers) override { m_columns = identifiers; }
    void installHeader() override {}
    void setIntercellSpacing(double, double) override {}
    void scrollToItem(const BatchItemRef& item) override { m_inView = item; }
    void markItem(const BatchItemRef& item, StripeMark mark) override { m_marks[item] = mark; }
    void clearMarks() override { m_marks.clear(); }

    StripeMark mark(const BatchItemRef& item) const {
        const auto found = m_marks.find(item);
        return found == m_marks.end() ? StripeMark::none : found->second;
    }
    const BatchItemRef& itemInView() const { return m_inView; }
    const QStringList& columnIdentifiers() const { return m_columns; }

    std::function<void()> onCommit; ///< what commitEditing() does, if anything

private:
    RowIndexes m_selected;
    RowIndexes m_keyboardRow;
    QStringList m_columns;
    BatchItemRef m_inView;
    std::map<BatchItemRef, StripeMark> m_marks;
};

/// Acts as if cancelled when shown, unless a test answers.
class PlainAddToPanel : public AddToPanel {
public:
    void setReel(std::uint64_t reel) override { m_reel = reel; }
    std::uint64_t reel() const override { return m_reel; }
    QString title() const override { return m_title; }
    void setTitlePlaceholder(const QString& text) override { m_placeholder = text; }
    int runModal() override { return answer ? answer() : panelCancelled; }

    std::function<int()> answer;
    void setTitle(const QString& title) { m_title = title; }
    const QString& titlePlaceholder() const { return m_placeholder; }

private:
    std::uint64_t m_reel = 0;
    QString m_title;
    QString m_placeholder;
};

class PlainPrefsPanel : public PrefsPanel {
public:
    void showPreferences() override {}
};

/// Acts as if every panel were cancelled.
class PlainFilePanels : public FilePanels {
public:
    std::optional<QString> runOpenPanel() override { return {}; }
    std::optional<QString> runSavePanel(const QString&) override { return {}; }
};

class PlainRecentDocuments : public RecentDocuments {
public:
    void noteNewRecentDocument(const QString&) override {}
};

/// A complete set of outlets, except the alerts.
struct PlainOutlets {
    PlainWindowTitle window;
    PlainRadioMatrix transportMatrix{3};
    PlainRadioMatrix frameRateMatrix{rate::count};
    PlainRadioMatrix syncTypeMatrix{3};
    PlainRadioMatrix batchRadios{2};
    PlainDisplay currentTimeButton{time_tag::current};
    PlainDisplay startTimeButton{time_tag::start};
    PlainDisplay endTimeButton{time_tag::stop};
    PlainButton stopTimeCheck;
    PlainButton batchCheck;
    PlainButton addToBatchButton;
    PlainButton removeFromBatchButton;
    PlainBatchTable batchTable;
    PlainTextField currentStripeItemLabel;
    PlainPrefsPanel prefsController;
    PlainAddToPanel addToPanel;
    PlainFilePanels filePanels;
    PlainRecentDocuments recentDocuments;

    Outlets outlets(Alerts& alerts) {
        return {&window,           &transportMatrix,
                &frameRateMatrix,  &syncTypeMatrix,
                &batchRadios,      &currentTimeButton,
                &startTimeButton,  &endTimeButton,
                &stopTimeCheck,    &batchCheck,
                &addToBatchButton, &removeFromBatchButton,
                &batchTable,       &currentStripeItemLabel,
                &prefsController,  &addToPanel,
                &alerts,           &filePanels,
                &recentDocuments};
    }
};

} // namespace vexa::test
