#pragma once

#include "engine/control_outlets.h"
#include "engine/panel_outlets.h"

#include <cstddef>

namespace vexa {

/// A pointer to an outlet that is never null. Leaving one out of a set of outlets is a compile
/// error.
template<class Kind>
class Outlet {
public:
    Outlet(Kind* outlet) : m_outlet(outlet) {}
    Outlet(std::nullptr_t) = delete;
    Kind* operator->() const { return m_outlet; }
    Kind& operator*() const { return *m_outlet; }

private:
    Kind* m_outlet;
};

/// All outlets of the controller, which must outlive it.
struct Outlets {
    Outlet<WindowTitle> window;
    Outlet<RadioMatrix> transportMatrix;
    Outlet<RadioMatrix> frameRateMatrix;
    Outlet<RadioMatrix> syncTypeMatrix;
    Outlet<RadioMatrix> batchRadios;
    Outlet<TimecodeDisplay> currentTimeButton;
    Outlet<TimecodeEntry> startTimeButton;
    Outlet<TimecodeEntry> endTimeButton;
    Outlet<Button> stopTimeCheck;
    Outlet<Button> batchCheck;
    Outlet<Button> addToBatchButton;
    Outlet<Button> removeFromBatchButton;
    Outlet<BatchTable> batchTable;
    Outlet<TextField> currentStripeItemLabel;
    Outlet<PrefsPanel> prefsController;
    Outlet<AddToPanel> addToPanel;
    Outlet<Alerts> alerts;
    Outlet<FilePanels> filePanels;
    Outlet<RecentDocuments> recentDocuments;
};

} // namespace vexa
