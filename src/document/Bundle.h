#pragma once

#include <QString>

#include <optional>
#include <utility>

namespace vexa {

/// The files installed with the program: Info.plist, a property list that describes it, and
/// resources, some of them in language folders such as de.lproj or pt_BR.lproj.
class Bundle {
public:
    /// The bundle of the running program, installed or in its build tree.
    static Bundle mainBundle();
    explicit Bundle(QString folder) : m_folder(std::move(folder)) {}

    /// The text under a key of Info.plist; nothing if it cannot be read.
    std::optional<QString> infoString(const QString& key) const;

    /// The path of the resource file name.type. Searches for one without a language first, then for
    /// the user's languages, then for English.
    std::optional<QString> pathForResource(const QString& name, const QString& type) const;

private:
    QString m_folder;
};

} // namespace vexa
