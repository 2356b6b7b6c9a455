#include "ltc_tool/report.h"

#include "ltc_tool/figures.h"
#include "ltc_tool/table.h"

#include <algorithm>
#include <ranges>

namespace vexa::ltc_tool {

namespace {

using Cells = std::vector<std::string>;
using Rows = std::vector<Cells>;

/// More faults of one row than anybody reads.
constexpr std::size_t mostFaultsShown = 20;

/// Adds the recording's name if there are several.
std::string placeOf(const Findings& findings, std::size_t recording, double sample) {
    const auto& tape = findings.tapes[recording];
    const auto place = placeText(sample, tape.sampleRate);
    return findings.tapes.size() > 1 ? tape.name + ' ' + place : place;
}

std::string placeOf(const Findings& findings, const Passage& passage) {
    return placeOf(findings, passage.recording,
                   vexa::placeOf(passage, passage.begin, findings.tapes));
}

std::string tapeText(const TapeContents& tape) {
    std::string text = tape.name + ": " +
                       placeText(static_cast<double>(tape.length), tape.sampleRate) + ", " +
                       std::to_string(tape.sampleRate) + " Hz";
    if (tape.channels > 1)
        text += ", channel " + std::to_string(tape.channel + 1) + " of " +
                std::to_string(tape.channels);
    text += '\n';
    if (!tape.readError.empty())
        text += "  incomplete: " + tape.readError + '\n';
    if (tape.stretches.empty())
        return text + "  no timecode\n\n";
    Rows rows{
        {"Place", "First", "Last", "Frames", "Rate", "Level", "Speed", "User bits", "Unread"}};
    for (const auto& stretch : tape.stretches)
        rows.push_back({placeText(stretch.begin, tape.sampleRate), timecodeText(stretch.first),
                        timecodeText(stretch.last), std::to_string(stretch.frames),
                        std::string(stretch.rate->name), levelText(stretch.peak),
                        percentText(stretch.speed) + " %", userBitsText(stretch.userBits),
                        std::to_string(stretch.unread)});
    text += tableText(rows);
    if (tape.stretchesBeyond > 0)
        text += "... and " + std::to_string(tape.stretchesBeyond) + " more stretches\n";
    return text + '\n';
}

std::string faultsText(const Findings& findings, const std::vector<TapeFault>& faults) {
    Rows rows;
    for (const auto& fault : faults | std::views::take(mostFaultsShown))
        rows.push_back({"    " + placeOf(findings, fault.recording, fault.place), text(fault)});
    auto lines = tableText(rows);
    if (faults.size() > mostFaultsShown)
        lines += "    ... and " + std::to_string(faults.size() - mostFaultsShown) + " more\n";
    return lines;
}

std::string rowsText(const Findings& findings) {
    Rows cells{{"Row", "Reel", "Title", "Start", "Stop", "Rate", "Found", "Place"}};
    for (std::size_t i = 0; i < findings.rows.size(); ++i) {
        const auto& row = findings.rows[i];
        const auto& verdict = findings.verdict.rows[i];
        cells.push_back(
            {std::to_string(row.number), std::to_string(row.reel), row.title,
             timecodeText(row.start), timecodeText(row.stop), std::string(row.rate->name),
             verdictWord(verdict),
             verdict.passages.empty() ? "" : placeOf(findings, verdict.passages.front())});
    }
    auto text = tableText(cells) + '\n';
    for (std::size_t i = 0; i < findings.rows.size(); ++i)
        if (const auto& faults = findings.verdict.rows[i].faults; !faults.empty())
            text += "Row " + std::to_string(findings.rows[i].number) + ":\n" +
                    faultsText(findings, faults) + '\n';
    return text;
}

std::string unlistedText(const Findings& findings) {
    if (findings.verdict.unlisted.empty())
        return {};
    Rows cells;
    for (const auto& passage : findings.verdict.unlisted)
        cells.push_back({"    " + placeOf(findings, passage),
                         timecodeText(firstOf(passage, findings.tapes)) + " to " +
                             timecodeText(lastOf(passage, findings.tapes))});
    return "On no row:\n" + tableText(cells) + '\n';
}

std::string count(std::size_t number, const char* what) {
    return std::to_string(number) + ' ' + what + (number == 1 ? "" : "s");
}

std::string summary(const Findings& findings) {
    if (findings.rows.empty() && findings.skipped.empty()) {
        std::size_t stretches = 0;
        for (const auto& tape : findings.tapes)
            stretches += tape.stretches.size() + tape.stretchesBeyond;
        return std::to_string(stretches) + (stretches == 1 ? " stretch, " : " stretches, ") +
               count(findings.faults.size(), "fault") + '\n';
    }
    std::size_t whole = 0;
    std::size_t missing = 0;
    for (const auto& row : findings.verdict.rows) {
        whole += row.isWhole();
        missing += row.passages.empty();
    }
    return count(findings.rows.size(), "row") + ": " + std::to_string(whole) + " whole, " +
           std::to_string(findings.rows.size() - whole - missing) + " with faults, " +
           std::to_string(missing) + " missing; " +
           std::to_string(findings.verdict.unlisted.size()) + " on no row\n";
}

} // namespace

std::string verdictWord(const RowVerdict& row) {
    if (row.passages.empty())
        return "MISSING";
    return row.isWhole() ? "whole" : "FAULTS";
}

bool isGood(const Findings& findings) {
    const auto isTapeGood = [](const TapeContents& tape) {
        return tape.readError.empty() && tape.stretchesBeyond == 0;
    };
    const bool areTapesGood = std::ranges::all_of(findings.tapes, isTapeGood);
    if (!areTapesGood || !findings.skipped.empty())
        return false;
    if (findings.rows.empty())
        return findings.faults.empty() &&
               std::ranges::none_of(findings.tapes,
                                    [](const auto& tape) { return tape.stretches.empty(); });
    return findings.verdict.unlisted.empty() &&
           std::ranges::all_of(findings.verdict.rows, &RowVerdict::isWhole);
}

std::string reportText(const Findings& findings) {
    std::string text;
    for (const auto& tape : findings.tapes)
        text += tapeText(tape);
    for (const auto& line : findings.skipped)
        text += line + '\n';
    if (!findings.rows.empty())
        text += rowsText(findings) + unlistedText(findings);
    else if (!findings.faults.empty())
        text += "Faults:\n" + faultsText(findings, findings.faults) + '\n';
    return text + summary(findings);
}

} // namespace vexa::ltc_tool
