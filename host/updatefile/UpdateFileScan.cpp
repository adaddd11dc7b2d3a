#include "updatefile/UpdateFileScan.hpp"

#include "text/Guid.hpp"
#include "text/Unicode.hpp"
#include "updatefile/FileKind.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace updatefile {
namespace {

using namespace std::string_view_literals;

/// The add-on's line buffer. The rest of a longer line counts as a line of its own.
constexpr std::size_t LongestPiece = 2047;
constexpr std::size_t FieldsOfALine = 4;

bool inQuotes(std::string_view field) {
    return field.size() >= 2 && field.front() == '"' && field.back() == '"';
}

}  // namespace

void LineNotes::add(std::uint64_t line) {
    ++count;
    if (first.size() < Kept) first.push_back(line);
}

UpdateFileScan::UpdateFileScan(Knows knows, Visit visit) : knows_(std::move(knows)), visit_(std::move(visit)) {
    piece_.reserve(LongestPiece);
}

void UpdateFileScan::read(std::string_view block) {
    if (beginning_.size() < SniffLength) beginning_ += block.substr(0, SniffLength - beginning_.size());
    for (const char byte : block) readByte(byte);
}

void UpdateFileScan::readByte(char byte) {
    const bool secondOfPair = byte == '\n' && lastWasReturn_;
    lastWasReturn_ = byte == '\r';
    if (byte == '\r' || byte == '\n') {
        if (!secondOfPair) endLine();
        return;
    }
    if (++lineBytes_ == LongestPiece + 1) findings_.overlong.add(line_);
    piece_ += byte;
    if (piece_.size() == LongestPiece) endPiece();
}

void UpdateFileScan::endLine() {
    if (!piece_.empty()) endPiece();
    countLine();
    ++line_;
}

void UpdateFileScan::countLine() {
    if (lineBytes_ > 0) ++findings_.lines;
    if (lineBytes_ > 0 && !lineGaveRow_) findings_.withoutRow.add(line_);
    lineGaveRow_ = false;
    lineBytes_ = 0;
}

void UpdateFileScan::endPiece() {
    ++findings_.pieces;
    readFirstField(piece_);
    // The rest of a cut line means nothing by itself, and the cut is noted already.
    if (lineBytes_ <= LongestPiece) examine(piece_);
    if (visit_) {
        // A zero byte ends the text that the add-on sees.
        cutFields(std::string_view(piece_).substr(0, piece_.find('\0')));
        kept_.number = line_;
        visit_(kept_);
    }
    piece_.clear();
}

/// The add-on makes a row of each piece whose first field names an element. A piece that begins with a TAB, or whose
/// text a zero byte ends there, keeps the first field of the piece before.
void UpdateFileScan::readFirstField(std::string_view piece) {
    const std::string_view field = piece.substr(0, piece.find_first_of("\t\0"sv));
    if (!field.empty()) {
        const auto guid = text::parseGuid(field);
        firstField_ = !guid ? FirstField::NoGuid : knows_(*guid) ? FirstField::ElementGuid : FirstField::UnknownGuid;
    }
    lineGaveRow_ = lineGaveRow_ || firstField_ == FirstField::ElementGuid;
}

void UpdateFileScan::cutFields(std::string_view text) {
    std::size_t start = 0;
    for (std::string& field : kept_.fields) {
        if (start > text.size()) return;
        const std::size_t end = std::min(text.find('\t', start), text.size());
        // The add-on takes no field from a line that begins with a TAB.
        if (end == 0) return;
        field = text.substr(start, end - start);
        start = end + 1;
    }
}

void UpdateFileScan::examine(std::string_view text) {
    // A cut may fall into the middle of a character.
    if (text.size() < LongestPiece && !text::isWellFormed(text)) findings_.notUtf8.add(line_);
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos) {
        findings_.zeroBytes.add(line_);
        text = text.substr(0, zero);
    }
    if (text.empty() || text.front() == '\t') {
        findings_.leadingTab.add(line_);
    } else {
        examineFields(text);
    }
}

void UpdateFileScan::examineFields(std::string_view text) {
    std::size_t fields = 0;
    bool quotes = false;
    for (std::size_t start = 0; fields < FieldsOfALine && start <= text.size(); ++fields) {
        const std::size_t end = std::min(text.find('\t', start), text.size());
        const std::string_view field = text.substr(start, end - start);
        if (fields == 0) examineGuid(field);
        quotes = quotes || inQuotes(field);
        start = end + 1;
    }
    if (fields < FieldsOfALine) findings_.fewFields.add(line_);
    if (quotes) findings_.quoted.add(line_);
}

void UpdateFileScan::examineGuid(std::string_view field) {
    if (firstField_ == FirstField::UnknownGuid) findings_.unknownElement.add(line_);
    if (firstField_ != FirstField::NoGuid) return;
    findings_.noGuid.add(line_);
    if (text::fromGlobalId(field).has_value()) findings_.globalId.add(line_);
}

UpdateFileFindings UpdateFileScan::finish() {
    // A last line without an end gives no row, but has a finding of its own.
    lineGaveRow_ = lineGaveRow_ || !piece_.empty();
    countLine();
    // A line whose length is a multiple of the buffer's was taken when the buffer was full, so it needs no line end.
    if (!piece_.empty()) findings_.lineWithoutEnd = line_;
    const FileKind kind = detectFileKind(beginning_);
    findings_.byteOrderMark = kind == FileKind::TextWithByteOrderMark;
    findings_.utf16 = kind == FileKind::Utf16;
    findings_.binary = kind == FileKind::Binary;
    return std::move(findings_);
}

}  // namespace updatefile
