#include "interchange/RowColumns.h"

#include <QString>

#include <algorithm>

namespace vexa {

namespace {

struct Name {
    const char16_t* letters;
    RowColumns::Field field;
};

/// As fieldNamed() leaves them: lower-case letters only.
constexpr std::array names{
    Name{u"reel", RowColumns::reel},         Name{u"reelnumber", RowColumns::reel},
    Name{u"reelno", RowColumns::reel},       Name{u"tape", RowColumns::reel},
    Name{u"title", RowColumns::title},       Name{u"name", RowColumns::title},
    Name{u"clip", RowColumns::title},        Name{u"clipname", RowColumns::title},
    Name{u"description", RowColumns::title}, Name{u"programme", RowColumns::title},
    Name{u"program", RowColumns::title},     Name{u"start", RowColumns::start},
    Name{u"starttime", RowColumns::start},   Name{u"starttc", RowColumns::start},
    Name{u"tcstart", RowColumns::start},     Name{u"in", RowColumns::start},
    Name{u"tcin", RowColumns::start},        Name{u"timecodein", RowColumns::start},
    Name{u"begin", RowColumns::start},       Name{u"stop", RowColumns::stop},
    Name{u"stoptime", RowColumns::stop},     Name{u"stoptc", RowColumns::stop},
    Name{u"tcstop", RowColumns::stop},       Name{u"out", RowColumns::stop},
    Name{u"tcout", RowColumns::stop},        Name{u"timecodeout", RowColumns::stop},
    Name{u"end", RowColumns::stop},          Name{u"endtime", RowColumns::stop},
    Name{u"endtc", RowColumns::stop},        Name{u"tcend", RowColumns::stop},
    Name{u"rate", RowColumns::rate},         Name{u"framerate", RowColumns::rate},
    Name{u"fps", RowColumns::rate},          Name{u"sync", RowColumns::type},
    Name{u"synctype", RowColumns::type},     Name{u"type", RowColumns::type}};

std::optional<RowColumns::Field> fieldNamed(QStringView cell) {
    constexpr qsizetype longest = 40;
    if (cell.size() > longest)
        return {};
    QString letters;
    for (const auto letter : cell)
        if (letter.isLetter())
            letters += letter.toLower();
    const auto* const found =
        std::ranges::find_if(names, [&](const Name& name) { return letters == name.letters; });
    return found == names.end() ? std::nullopt : std::optional(found->field);
}

} // namespace

std::optional<RowColumns> RowColumns::namedBy(const DelimitedReader::Cells& header) {
    RowColumns columns;
    int count = 0;
    for (std::size_t place = 0; place < header.size(); ++place) {
        const auto field = fieldNamed(header[place]);
        if (field && !columns.m_places[*field]) {
            columns.m_places[*field] = place;
            ++count;
        }
    }
    return count < 2 ? std::nullopt : std::optional(columns);
}

RowColumns RowColumns::inOrder() {
    RowColumns columns;
    for (std::size_t field = 0; field < fieldCount; ++field)
        columns.m_places[field] = field;
    return columns;
}

QStringView RowColumns::cell(const DelimitedReader::Cells& cells, Field field) const {
    const auto place = m_places[field];
    return place && *place < cells.size() ? cells[*place] : QStringView();
}

} // namespace vexa
