#include "app/destination_choice.h"

#include "midi/display_name.h"
#include "text/printable.h"

#include <QStringList>

#include <optional>

namespace vexa {

namespace {

std::optional<std::int64_t> positionOf(MidiObjectRef wanted, MidiSystem& system) {
    std::size_t position = 0;
    while (const auto destination = system.destination(position)) {
        if (destination == wanted)
            return static_cast<std::int64_t>(position);
        ++position;
    }
    return {};
}

std::optional<std::int64_t> positionNumbered(qlonglong number, MidiSystem& system) {
    if (number >= 0 && static_cast<std::size_t>(number) < system.numberOfDestinations())
        return number;
    const auto id = static_cast<MidiUniqueId>(number);
    const auto found = id == number ? system.findByUniqueId(id) : std::nullopt;
    return found ? positionOf(found->ref, system) : std::nullopt;
}

MidiUniqueId idAt(std::size_t position, MidiSystem& system) {
    return system.uniqueId(system.destination(position)).value_or(0);
}

} // namespace

std::variant<std::int64_t, CommandLineError> destinationNamed(const QString& name,
                                                              MidiSystem& system) {
    bool isNumber = false;
    const auto number = name.toLongLong(&isNumber);
    if (const auto position = isNumber ? positionNumbered(number, system) : std::nullopt)
        return *position;
    QStringList matches;
    std::int64_t match = 0;
    const auto names = destinationNames(system);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto known = QString::fromStdString(names[i]);
        if (!known.contains(name, Qt::CaseInsensitive))
            continue;
        matches += QStringLiteral("%1 (ID %2)").arg(known, QString::number(idAt(i, system)));
        match = static_cast<std::int64_t>(i);
    }
    if (matches.size() == 1)
        return match;
    if (matches.isEmpty())
        return CommandLineError{QStringLiteral("no MIDI destination matches \"%1\"").arg(name)};
    return CommandLineError{
        QStringLiteral("\"%1\" matches %2 MIDI destinations: %3")
            .arg(name, QString::number(matches.size()), matches.join(QStringLiteral(", ")))};
}

std::string destinationTable(MidiSystem& system) {
    std::string table;
    const auto names = destinationNames(system);
    for (std::size_t i = 0; i < names.size(); ++i) {
        table +=
            std::to_string(i) + '\t' + std::to_string(idAt(i, system)) + '\t' + printable(names[i]);
        if (const auto whereabouts = system.whereabouts(system.destination(i)))
            table += '\t' + printable(*whereabouts);
        table += '\n';
    }
    return table;
}

} // namespace vexa
