#include "defaults/user_defaults.h"

#include <QSettings>
#include <QVariant>

#include <cmath>

namespace vexa::defaults {

namespace {

QSettings open() {
    return {QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vexa-remote"),
            QStringLiteral("vexa-remote")};
}

void set(const char* key, const QVariant& value) {
    auto settings = open();
    settings.setValue(QLatin1String(key), value);
    settings.sync();
}

double leadingNumber(const QString& text) {
    const auto bytes = text.trimmed().toLower().toLatin1();
    if (bytes.startsWith("t") || bytes.startsWith("y"))
        return 1;
    const double value = std::strtod(bytes.constData(), nullptr);
    return std::isfinite(value) ? value : 0;
}

} // namespace

std::optional<double> number(const char* key) {
    const auto value = open().value(QLatin1String(key));
    if (!value.isValid())
        return std::nullopt;
    return leadingNumber(value.toString());
}

std::optional<std::int64_t> integer(const char* key) {
    const auto value = number(key);
    if (!value)
        return std::nullopt;
    constexpr double limit = 9.2e18; // what a double can hold of 64 bits without overflowing them
    return std::abs(*value) < limit ? static_cast<std::int64_t>(*value) : 0;
}

void setReal(const char* key, double value) { set(key, value); }
void setInteger(const char* key, std::int64_t value) { set(key, static_cast<qlonglong>(value)); }
void setBoolean(const char* key, bool value) { set(key, value); }

} // namespace vexa::defaults
