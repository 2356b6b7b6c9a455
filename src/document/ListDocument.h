#pragma once

#include <QString>

namespace vexa {

class VexaBatchStripeData;

/// The list as a document: the file it is tied to, its name, and whether it has unsaved changes.
/// Nothing here asks or shows. Main thread only.
class ListDocument {
public:
    /// The list must outlive this.
    explicit ListDocument(VexaBatchStripeData& list) : m_list(list) {}

    /// The list has changed since it was opened, saved or cleared.
    bool dirty() const { return m_dirty; }
    void setDirty() { m_dirty = true; }
    /// The list is tied to a file.
    bool previouslySaved() const { return m_previouslySaved; }
    /// That file's path; null when there is none.
    const QString& url() const { return m_url; }
    /// The name at the last retitle(): that of the file up to its first full stop.
    const QString& fileTitle() const { return m_fileTitle; }
    void retitle();

    /// An empty list without a file.
    void clear();
    /// Takes the list of a file. One that cannot be read gives an empty list, which is tied to it
    /// all the same.
    void open(const QString& path);
    /// Writes the list to a file and ties it to that, whether or not it could be written; false
    /// when it could not. The name stays as it was.
    bool save(const QString& path);

private:
    void tieTo(const QString& path, bool toFile);

    VexaBatchStripeData& m_list;
    bool m_dirty = false;
    bool m_previouslySaved = false;
    QString m_url;
    QString m_fileTitle;
};

} // namespace vexa
