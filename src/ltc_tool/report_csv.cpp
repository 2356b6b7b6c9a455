#include "ltc_tool/figures.h"
#include "ltc_tool/report.h"
#include "ltc_tool/table.h"

namespace vexa::ltc_tool {

namespace {

/// A record, with its fields in the heading's order.
struct Record {
    std::string kind{};
    std::string recording{};
    std::string place{};
    std::string row{};
    std::string reel{};
    std::string title{};
    std::string first{};
    std::string last{};
    std::string frames{};
    std::string rate{};
    std::string dropFrame{};
    std::string level{};
    std::string speed{};
    std::string userBits{};
    std::string text{};

    std::vector<std::string> cells() const {
        return {kind,   recording, place,     row,   reel,  title,    first, last,
                frames, rate,      dropFrame, level, speed, userBits, text};
    }
};

const Record heading{"kind",       "recording",  "place",   "row",       "reel",
                     "title",      "first",      "last",    "frames",    "rate",
                     "drop-frame", "level dBFS", "speed %", "user bits", "text"};

class Csv {
public:
    explicit Csv(const Findings& findings) : m_findings(findings) {}

    std::string text() {
        add(heading);
        for (const auto& tape : m_findings.tapes)
            addTape(tape);
        for (std::size_t i = 0; i < m_findings.rows.size(); ++i)
            addRow(m_findings.rows[i], m_findings.verdict.rows[i]);
        for (const auto& line : m_findings.skipped)
            add({.kind = "row", .text = line});
        for (const auto& passage : m_findings.verdict.unlisted)
            addPassage({.kind = "unlisted"}, passage);
        for (const auto& fault : m_findings.faults)
            addFault({}, fault);
        return csvText(m_rows);
    }

private:
    void add(const Record& record) { m_rows.push_back(record.cells()); }

    void addTape(const TapeContents& tape) {
        for (const auto& stretch : tape.stretches)
            add({.kind = "stretch",
                 .recording = tape.name,
                 .place = placeText(stretch.begin, tape.sampleRate),
                 .first = timecodeText(stretch.first),
                 .last = timecodeText(stretch.last),
                 .frames = std::to_string(stretch.frames),
                 .rate = std::string(stretch.rate->name),
                 .dropFrame = stretch.rate->dropFrame ? "1" : "0",
                 .level = levelText(stretch.peak),
                 .speed = percentText(stretch.speed),
                 .userBits = userBitsText(stretch.userBits),
                 .text = std::to_string(stretch.unread) + " unread"});
        if (!tape.readError.empty())
            add({.kind = "fault", .recording = tape.name, .text = tape.readError});
    }

    static Record recordOf(const TapeRow& row) {
        return {.row = std::to_string(row.number),
                .reel = std::to_string(row.reel),
                .title = row.title};
    }

    void addRow(const TapeRow& row, const RowVerdict& verdict) {
        auto record = recordOf(row);
        record.kind = "row";
        record.first = timecodeText(row.start);
        record.last = timecodeText(lastFrame(row));
        record.frames = std::to_string(frameCount(row));
        record.rate = row.rate->name;
        record.dropFrame = row.rate->dropFrame ? "1" : "0";
        record.text = verdictWord(verdict);
        if (!verdict.passages.empty())
            setPlace(record, verdict.passages.front());
        add(record);
        for (const auto& fault : verdict.faults)
            addFault(recordOf(row), fault);
    }

    void addFault(Record record, const TapeFault& fault) {
        const auto& tape = m_findings.tapes[fault.recording];
        record.kind = fault.isFault() ? "fault" : "note";
        record.recording = tape.name;
        record.place = placeText(fault.place, tape.sampleRate);
        record.text = vexa::text(fault);
        add(record);
    }

    void addPassage(Record record, const Passage& passage) {
        record.first = timecodeText(firstOf(passage, m_findings.tapes));
        record.last = timecodeText(lastOf(passage, m_findings.tapes));
        record.frames = std::to_string(passage.end - passage.begin);
        setPlace(record, passage);
        add(record);
    }

    void setPlace(Record& record, const Passage& passage) const {
        const auto& tape = m_findings.tapes[passage.recording];
        record.recording = tape.name;
        record.place =
            placeText(placeOf(passage, passage.begin, m_findings.tapes), tape.sampleRate);
    }

    const Findings& m_findings;
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace

std::string reportCsv(const Findings& findings) { return Csv(findings).text(); }

} // namespace vexa::ltc_tool
