#pragma once

#include "engine/outlets.h"

namespace vexa {

// Outlets for a run without a window. They show nothing, and answer as if no control had been
// touched and every panel cancelled.

class SilentMatrix final : public RadioMatrix {
public:
    void selectCellWithTag(std::uint64_t) override {}
    std::uint64_t selectedTag() const override { return 0; }
    void switchSelectedCellOff() override {}
    void setMatrixEnabled(bool) override {}
    void setCellEnabled(std::uint64_t, bool) override {}
};

class SilentButton final : public Button {
public:
    void setState(bool) override {}
    bool state() const override { return false; }
    void setEnabled(bool) override {}
    void setHidden(bool) override {}
    void setToolTip(const QString&) override {}
};

class SilentEntry final : public TimecodeEntry {
public:
    void setBcdValue(std::uint64_t) override {}
    void setFrameRate(const FrameRate&) override {}
    void frameRateChanged() override {}
    void setState(int) override {}
    int state() const override { return 0; }
};

class SilentTextField final : public TextField {
public:
    void setStringValue(const QString&) override {}
};

class SilentTitle final : public WindowTitle {
public:
    void setTitle(const QString&) override {}
};

/// Keeps the selection, for a run of the selected rows.
class SilentTable final : public BatchTable {
public:
    void reloadData() override { m_selected.clear(); }
    void commitEditing() override {}
    bool hasSelectedRows() const override { return !m_selected.empty(); }
    RowIndexes selectedRowIndexes() const override { return m_selected; }
    std::optional<std::size_t> onlySelectedRow() const override { return {}; }
    void selectRows(const RowIndexes& rows) override { m_selected = rows; }
    RowIndexes keyboardRow() const override { return {}; }
    void moveKeyboardTo(const RowIndexes&) override {}
    void setColumnIdentifiers(const QStringList&) override {}
    void installHeader() override {}
    void setIntercellSpacing(double, double) override {}
    void scrollToItem(const BatchItemRef&) override {}
    void markItem(const BatchItemRef&, StripeMark) override {}
    void clearMarks() override {}

private:
    RowIndexes m_selected;
};

class SilentAddToPanel final : public AddToPanel {
public:
    void setReel(std::uint64_t) override {}
    std::uint64_t reel() const override { return 0; }
    QString title() const override { return {}; }
    void setTitlePlaceholder(const QString&) override {}
    int runModal() override { return panelCancelled; }
};

class SilentPrefsPanel final : public PrefsPanel {
public:
    void showPreferences() override {}
};

class SilentFilePanels final : public FilePanels {
public:
    std::optional<QString> runOpenPanel() override { return {}; }
    std::optional<QString> runSavePanel(const QString&) override { return {}; }
};

class SilentRecentDocuments final : public RecentDocuments {
public:
    void noteNewRecentDocument(const QString&) override {}
};

/// All outlets that a terminal does not provide itself. One object serves for each kind.
struct SilentOutlets {
    Outlets with(TimecodeDisplay& clock, Alerts& alerts) {
        return {
            .window = &title,
            .transportMatrix = &matrix,
            .frameRateMatrix = &matrix,
            .syncTypeMatrix = &matrix,
            .batchRadios = &matrix,
            .currentTimeButton = &clock,
            .startTimeButton = &entry,
            .endTimeButton = &entry,
            .stopTimeCheck = &button,
            .batchCheck = &button,
            .addToBatchButton = &button,
            .removeFromBatchButton = &button,
            .batchTable = &table,
            .currentStripeItemLabel = &label,
            .prefsController = &prefsPanel,
            .addToPanel = &addToPanel,
            .alerts = &alerts,
            .filePanels = &filePanels,
            .recentDocuments = &recentDocuments,
        };
    }

    SilentTitle title;
    SilentMatrix matrix;
    SilentEntry entry;
    SilentButton button;
    SilentTextField label;
    SilentTable table;
    SilentPrefsPanel prefsPanel;
    SilentAddToPanel addToPanel;
    SilentFilePanels filePanels;
    SilentRecentDocuments recentDocuments;
};

} // namespace vexa
