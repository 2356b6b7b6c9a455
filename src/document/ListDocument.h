#pragma once

#include <QString>

namespace vexa {

class VexaBatchStripeData;

enum class FileTrouble { none, unread, unwritten };

/// The list as a document: its file, its title, and whether it has unsaved changes. Asks nothing
/// and shows nothing. Main thread only.
class ListDocument {
public:
    /// The list must outlive this.
    explicit ListDocument(VexaBatchStripeData& list) : m_list(list) {}

    /// Whether the list has changed since it was opened, saved or cleared.
    bool dirty() const { return m_dirty; }
    void setDirty() { m_dirty = true; }
    /// Whether the list has a file.
    bool previouslySaved() const { return m_previouslySaved; }
    /// The file's path; null if there is no file.
    const QString& url() const { return m_url; }
    /// The file's name at the last retitle(), up to its first full stop.
    const QString& fileTitle() const { return m_fileTitle; }
    void retitle();
    /// What failed when the list was last read from or written to its file.
    FileTrouble fileTrouble() const { return m_fileTrouble; }

    /// Empties the list and detaches it from its file.
    void clear();
    /// Reads the list from a file and attaches it to that file. An unreadable file gives an empty
    /// list.
    void open(const QString& path);
    /// Writes the list to a file and attaches it to that file, even if writing fails; then returns
    /// false. The title does not change.
    bool save(const QString& path);

private:
    void tieTo(const QString& path, bool toFile, FileTrouble trouble = FileTrouble::none);

    VexaBatchStripeData& m_list;
    bool m_dirty = false;
    bool m_previouslySaved = false;
    FileTrouble m_fileTrouble = FileTrouble::none;
    QString m_url;
    QString m_fileTitle;
};

} // namespace vexa
