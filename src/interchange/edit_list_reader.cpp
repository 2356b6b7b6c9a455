#include "interchange/edit_list_reader.h"

#include "interchange/ReelNumbers.h"
#include "interchange/RowTaker.h"

#include <QLatin1String>

#include <algorithm>
#include <array>

namespace vexa {

namespace {

constexpr qsizetype longestLine = 4096; // no edit list has longer lines

/// The lines of the text in order, without surrounding blanks.
class Lines {
public:
    explicit Lines(QStringView text) : m_rest(text) {}

    bool next() {
        if (m_rest.isEmpty())
            return false;
        const auto* const end = std::ranges::find_if(
            m_rest, [](QChar letter) { return letter == u'\n' || letter == u'\r'; });
        const qsizetype length = end - m_rest.begin();
        m_line = m_rest.first(length).left(longestLine).trimmed();
        const bool isPair = m_rest.sliced(length).startsWith(QLatin1String("\r\n"));
        m_rest = m_rest.sliced(std::min<qsizetype>(length + (isPair ? 2 : 1), m_rest.size()));
        ++m_number;
        return true;
    }

    QStringView line() const { return m_line; }
    std::size_t number() const { return m_number; }

private:
    QStringView m_rest;
    QStringView m_line;
    std::size_t m_number = 0;
};

/// The text after a keyword, if the line begins with the keyword.
std::optional<QStringView> after(QLatin1String keyword, QStringView line) {
    if (!line.startsWith(keyword, Qt::CaseInsensitive))
        return {};
    return line.sliced(keyword.size()).trimmed();
}

QStringView takeWord(QStringView& line) {
    const auto isSpace = [](QChar letter) { return letter.isSpace(); };
    const auto length = std::ranges::find_if(line, isSpace) - line.begin();
    const auto word = line.first(length);
    line = line.sliced(length).trimmed();
    return word;
}

bool isEdit(QStringView line) {
    const auto number = takeWord(line);
    return !number.isEmpty() && !line.isEmpty() &&
           std::ranges::all_of(number, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// An edit with its notes on the following lines.
struct Edit {
    WrittenRow row;
    QString reel;
    QString line;
    QString comesFrom; ///< clip names
    QString goesTo;
};

class EditListReader {
public:
    EditListReader(const QString& text, const ReadingOptions& options)
        : m_options(options), m_lines(text) {}

    ReadRows read() {
        while (m_lines.next() && m_edits.size() <= mostRows)
            readLine(m_lines.line());
        return rows();
    }

private:
    void readLine(QStringView line) {
        if (isEdit(line))
            readEdit(line);
        else if (const auto mode = after(QLatin1String("FCM:"), line))
            m_isDropFrame = mode->startsWith(QLatin1String("DROP"), Qt::CaseInsensitive);
        else if (auto note = after(QLatin1String("*"), line); note && !m_edits.empty())
            readNote(*note);
    }

    void readNote(QStringView note) {
        if (const auto from = after(QLatin1String("FROM CLIP NAME:"), note))
            m_edits.back().comesFrom = from->toString();
        else if (const auto to = after(QLatin1String("TO CLIP NAME:"), note))
            m_edits.back().goesTo = to->toString();
    }

    /// An edit has a number, reel, channels, a transition with an optional length, and its source
    /// and record times.
    void readEdit(QStringView line) {
        constexpr qsizetype longestQuote = 200;
        auto& edit = m_edits.emplace_back();
        edit.row.line = m_lines.number();
        edit.line = line.left(longestQuote).toString();
        takeWord(line);
        edit.reel = takeWord(line).toString();
        takeWord(line);
        std::optional<WrittenTime> time;
        while (!time && !line.isEmpty())
            time = timeFromText(takeWord(line));
        std::array<std::optional<WrittenTime>, 4> times{time};
        for (std::size_t i = 1; i < times.size(); ++i)
            times[i] = timeFromText(takeWord(line));
        if (std::ranges::all_of(times, [](const auto& each) { return each.has_value(); }))
            fill(edit, times);
        else
            edit.row.refusal = QStringLiteral("an edit has four times");
    }

    void fill(Edit& edit, const std::array<std::optional<WrittenTime>, 4>& times) const {
        const std::size_t first = m_options.editTimes == EditTimes::source ? 0 : 2;
        edit.row.start = *times[first];
        edit.row.stop = *times[first + 1];
        edit.row.start.isDropFrame |= m_isDropFrame;
        if (edit.reel.compare(QLatin1String("BL"), Qt::CaseInsensitive) == 0)
            edit.row.refusal = QStringLiteral("black, from no reel");
        else if (edit.row.start.time == edit.row.stop.time)
            edit.row.refusal = QStringLiteral("no length");
    }

    ReadRows rows() {
        std::vector<QString> reels;
        for (const auto& edit : m_edits)
            if (edit.row.refusal.isNull())
                reels.push_back(edit.reel);
        const ReelNumbers numbers(reels);
        RowTaker taker(m_options);
        for (auto& edit : m_edits) {
            edit.row.reel = numbers.of(edit.reel);
            edit.row.title = titleOf(edit);
            taker.take(edit.row, [&edit] { return edit.line; });
        }
        return taker.result();
    }

    static QString titleOf(const Edit& edit) {
        for (const auto& name : {edit.goesTo, edit.comesFrom})
            if (!name.isEmpty())
                return name;
        return edit.reel;
    }

    ReadingOptions m_options;
    Lines m_lines;
    std::vector<Edit> m_edits;
    bool m_isDropFrame = false;
};

} // namespace

bool isEditList(QStringView text) {
    Lines lines(text);
    while (lines.next()) {
        const auto line = lines.line();
        if (line.isEmpty())
            continue;
        return after(QLatin1String("TITLE:"), line) || after(QLatin1String("FCM:"), line) ||
               (isEdit(line) && line.count(u':') >= 12 && !line.contains(u'\t'));
    }
    return false;
}

ReadRows readEditList(const QString& text, const ReadingOptions& options) {
    return EditListReader(text, options).read();
}

} // namespace vexa
