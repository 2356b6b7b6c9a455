#include "document/Bundle.h"

#include "property_list/property_list_reader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStringList>

namespace vexa {

namespace {

/// The resource folders in search order: "", then, for Brazil, "pt_BR.lproj/" and "pt.lproj/".
QStringList resourceFolders() {
    QStringList folders{QString()};
    for (const auto& language : QLocale().uiLanguages() + QStringList(QStringLiteral("en"))) {
        const auto name = QLocale(language).name(); // "pt" alone means Brazil
        for (const auto& part : {name, name.section(QLatin1Char('_'), 0, 0)})
            folders += part + QStringLiteral(".lproj/");
    }
    return folders;
}

} // namespace

Bundle Bundle::mainBundle() {
    return Bundle(QCoreApplication::applicationDirPath() +
                  QStringLiteral("/" VEXA_BUNDLE_FROM_BINARIES));
}

std::optional<QString> Bundle::infoString(const QString& key) const {
    QFile file(QDir(m_folder).filePath(QStringLiteral("Info.plist")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto info = readPropertyList(file.readAll());
    const auto* const entries = info ? info->as<PropertyList::Dictionary>() : nullptr;
    const auto* const value = entries ? entries->find(key) : nullptr;
    const auto* const text = value ? value->as<QString>() : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<QString> Bundle::pathForResource(const QString& name, const QString& type) const {
    for (const auto& folder : resourceFolders()) {
        const QFileInfo file(m_folder + QLatin1Char('/') + folder + name + QLatin1Char('.') + type);
        if (file.isFile())
            return QDir::cleanPath(file.absoluteFilePath());
    }
    return {};
}

} // namespace vexa
