#pragma once

#include <QString>

#include <optional>
#include <utility>

namespace vexa {

/// What is installed beside the program: Info.plist, a property list that tells about it, and
/// resources, some of them in a folder of a language, as in de.lproj or pt_BR.lproj.
class Bundle {
public:
    /// That of the running program, installed or in its build tree.
    static Bundle mainBundle();
    explicit Bundle(QString folder) : m_folder(std::move(folder)) {}

    /// The text under a key of Info.plist; nothing when there is none that can be read.
    std::optional<QString> infoString(const QString& key) const;

    /// The file name.type of the resources: one of no language first, then those of the languages
    /// of the person who runs the program, then English.
    std::optional<QString> pathForResource(const QString& name, const QString& type) const;

private:
    QString m_folder;
};

} // namespace vexa
