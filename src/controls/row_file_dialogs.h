#pragma once

#include <QString>

class QWidget;

namespace vexa {

// Files to import lists from or export them to, other than batch lists.

namespace fileDialogs {

struct Kind {
    const char* title;
    const char* filter;
    const char* suffix; ///< of files to write; null: asks for an existing file
};

inline constexpr Kind rowsToRead{"Import", "Rows (*.csv *.tsv *.txt *.edl);;All files (*)",
                                 nullptr};
inline constexpr Kind rowsToWrite{"Export", "Comma-separated rows (*.csv)", "csv"};
inline constexpr Kind pdf{"Export as PDF", "PDF (*.pdf)", "pdf"};

} // namespace fileDialogs

/// Asks for a file of the kind, over the window; null if cancelled. name: the proposed name,
/// without its suffix.
QString askForFile(QWidget& window, const fileDialogs::Kind& kind, const QString& name = {});

} // namespace vexa
