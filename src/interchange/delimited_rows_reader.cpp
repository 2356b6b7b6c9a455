#include "interchange/DelimitedReader.h"
#include "interchange/RowColumns.h"
#include "interchange/RowTaker.h"
#include "interchange/delimited_rows.h"
#include "interchange/field_texts.h"
#include "interchange/formula_guard.h"

#include <QLatin1String>

#include <algorithm>
#include <utility>

namespace vexa {

namespace {

using Cells = DelimitedReader::Cells;

bool isBlank(const Cells& cells) {
    return std::ranges::all_of(cells, [](QStringView cell) { return cell.trimmed().isEmpty(); });
}

/// How well a delimiter fits the first lines: counts the times found. A header outweighs them, as
/// titles may hold lines that look like rows.
int senseOf(const QString& text, QChar delimiter) {
    constexpr int sampledRows = 20;
    constexpr qsizetype sampledLetters = 20'000;
    constexpr int header = sampledLetters;
    DelimitedReader reader(text.left(sampledLetters), delimiter);
    int sense = 0;
    bool isFirst = true;
    for (int row = 0; row < sampledRows && reader.next(); ++row) {
        if (isBlank(reader.cells()))
            continue;
        if (std::exchange(isFirst, false) && RowColumns::namedBy(reader.cells()))
            sense += header;
        for (const auto cell : reader.cells())
            sense += timeFromText(cell) ? 1 : 0;
    }
    return sense;
}

QChar delimiterOf(const QString& text) {
    constexpr std::array delimiters{QChar(u'\t'), QChar(u';'), QChar(u',')};
    return *std::ranges::max_element(delimiters, {},
                                     [&](QChar delimiter) { return senseOf(text, delimiter); });
}

/// The text of the cells for a message, of limited length.
QString lineOf(const Cells& cells) {
    constexpr qsizetype longest = 200;
    QString line;
    for (const auto cell : cells) {
        if (cell.isEmpty())
            continue;
        if (!line.isEmpty())
            line += QLatin1String(" | ");
        line += cell.left(longest - line.size());
        if (line.size() >= longest)
            break;
    }
    return line;
}

/// Makes a row from the cells, or says why it cannot.
class DelimitedRow {
public:
    DelimitedRow(const Cells& cells, const RowColumns& columns, std::size_t line)
        : m_cells(cells), m_columns(columns) {
        m_written.line = line;
    }

    WrittenRow read() {
        m_written.start = time(RowColumns::start, "start");
        m_written.stop = time(RowColumns::stop, "stop");
        m_written.reel = field(RowColumns::reel, reelFromText, "reel number");
        m_written.rate = field(RowColumns::rate, rateFromText, "frame rate that can be striped");
        m_written.type = field(RowColumns::type, syncTypeFromText, "sync type");
        m_written.title = m_columns.has(RowColumns::title)
                              ? withoutFormulaGuard(m_columns.cell(m_cells, RowColumns::title))
                              : QStringLiteral("untitled");
        return m_written;
    }

private:
    void refuse(const QString& reason) {
        if (m_written.refusal.isNull())
            m_written.refusal = reason;
    }

    WrittenTime time(RowColumns::Field column, const char* name) {
        const auto cell = m_columns.cell(m_cells, column).trimmed();
        const auto written = timeFromText(cell);
        if (!written && cell.isEmpty())
            refuse(QStringLiteral("no %1 time").arg(QLatin1String(name)));
        else if (!written)
            refuse(QStringLiteral("“%1” is not a time").arg(cell.left(longestQuote)));
        return written.value_or(WrittenTime{});
    }

    template<typename Reading>
    std::optional<std::uint64_t> field(RowColumns::Field column, Reading reading,
                                       const char* name) {
        const auto cell = m_columns.cell(m_cells, column).trimmed();
        const auto value = reading(cell);
        if (!value && !cell.isEmpty())
            refuse(QStringLiteral("“%1” is not a %2")
                       .arg(cell.left(longestQuote), QLatin1String(name)));
        return value;
    }

    static constexpr qsizetype longestQuote = 40;

    const Cells& m_cells;
    const RowColumns& m_columns;
    WrittenRow m_written;
};

/// Removes a line that some spreadsheets write first, "sep=;", and returns its delimiter.
QChar takeNamedDelimiter(QString& text) {
    constexpr qsizetype letters = 5;
    const auto line = QStringView(text).left(letters + 1).trimmed();
    if (line.size() != letters || !line.startsWith(QLatin1String("sep="), Qt::CaseInsensitive))
        return {};
    const auto delimiter = line.back();
    text.remove(0, letters);
    return delimiter;
}

} // namespace

ReadRows readDelimitedRows(const QString& wholeText, const ReadingOptions& options) {
    QString text = wholeText;
    const auto named = takeNamedDelimiter(text);
    DelimitedReader reader(text, named.isNull() ? delimiterOf(text) : named);
    RowTaker taker(options);
    std::optional<RowColumns> columns;
    while (taker.hasRoom() && reader.next()) {
        const auto& cells = reader.cells();
        if (isBlank(cells))
            continue;
        if (!columns) {
            columns = RowColumns::namedBy(cells);
            if (columns)
                continue;
            columns = RowColumns::inOrder();
        }
        taker.take(DelimitedRow(cells, *columns, reader.line()).read(),
                   [&cells] { return lineOf(cells); });
    }
    return taker.result();
}

} // namespace vexa
