#include "updatefile/Hints.hpp"

#include "text/Message.hpp"
#include "updatefile/Wording.hpp"

namespace updatefile {
namespace {

/// Adds "Lines 4 and 17: " and the text, if there are such lines.
void hint(std::vector<std::string>& hints, const LineNotes& notes, const std::string& text) {
    if (notes.count == 0) return;
    hints.push_back(notes.count == 1 ? text::message("Line {}: {}", listed(notes), text)
                                     : text::message("Lines {}: {}", listed(notes), text));
}

std::string reasons(const UpdateFileFindings& findings) {
    std::string text;
    if (findings.noGuid.count > 0)
        text += text::message("; the first field is no GUID of 36 characters in {}", numberedLines(findings.noGuid));
    if (findings.unknownElement.count > 0)
        text += text::message("; no element has the GUID in {}", numberedLines(findings.unknownElement));
    return text;
}

void hintLinesWithoutRow(std::vector<std::string>& hints, const UpdateFileFindings& findings, std::string_view shows) {
    if (findings.withoutRow.count == 0) return;
    hints.push_back(text::counted("{} line gave no row{}: check the model and the GUIDs, {} them",
                                  "{} lines gave no row{}: check the model and the GUIDs, {} them",
                                  findings.withoutRow.count, reasons(findings), shows));
}

void hintEncoding(std::vector<std::string>& hints, const UpdateFileFindings& findings) {
    if (findings.byteOrderMark) {
        hints.push_back(
            text::message("The file begins with a byte-order mark, which the first line's GUID then contains: save it "
                          "as UTF-8 without one"));
    }
    hint(hints, findings.notUtf8,
         text::message("not UTF-8, read as Windows-1252: if characters look wrong, save the file as UTF-8"));
    hint(hints, findings.zeroBytes, text::message("zero bytes, the line's text ends at the first one: remove them"));
}

void hintLayout(std::vector<std::string>& hints, const UpdateFileFindings& findings, std::string_view shows) {
    if (findings.lineWithoutEnd != 0) {
        hints.push_back(text::message("Line {}: the last line has no line end and was not imported: end it with one",
                                      findings.lineWithoutEnd));
    }
    hint(hints, findings.leadingTab,
         text::message("begins with a TAB, so the previous line's four fields count again: write the GUID first"));
    hint(hints, findings.fewFields,
         text::message("fewer than four fields, the missing ones keep the previous line's: write GUID, item, old and "
                       "new value, with a TAB between them"));
    hint(hints, findings.overlong,
         text::message("longer than 2047 bytes, cut there and the rest read as a line of its own: shorten the line"));
    hint(hints, findings.quoted,
         text::message(
             "cells in quotes, which count as part of the text: save the file without them (tab-delimited text)"));
    hint(hints, findings.globalId,
         text::message("a GlobalId of 22 characters where the GUID of 36 is wanted: {} both", shows));
}

}  // namespace

std::optional<std::string> uselessBecause(const UpdateFileFindings& findings) {
    if (findings.lines == 0 && !findings.ofTable)
        return text::message("it holds no lines; write one change a line: GUID, item, old and new value");
    if (findings.binary) return NoTextFile.text();
    return std::nullopt;
}

std::vector<std::string> hintsFor(const UpdateFileFindings& findings, const ReviewCounts& counts,
                                  std::string_view shows) {
    std::vector<std::string> hints;
    if (auto reason = uselessBecause(findings)) return {std::move(*reason)};
    if (counts.rowsLost > 0) {
        hints.push_back(
            text::counted("{} row did not fit into the list, which holds {}: split the update file and import "
                          "the parts one after the other",
                          "{} rows did not fit into the list, which holds {}: split the update file and import "
                          "the parts one after the other",
                          counts.rowsLost, counts.rows));
    }
    if (findings.utf16) {
        // All other findings only follow from this one.
        hints.push_back(
            text::message("The file is UTF-16 text, whose zero bytes end every line's text: save it as UTF-8 (in a "
                          "spreadsheet: tab-delimited text, UTF-8)"));
        return hints;
    }
    hintLinesWithoutRow(hints, findings, shows);
    hintEncoding(hints, findings);
    hintLayout(hints, findings, shows);
    return hints;
}

}  // namespace updatefile
