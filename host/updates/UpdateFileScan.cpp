#include "updates/UpdateFileScan.hpp"

#include "updates/FileKind.hpp"
#include "updates/Text.hpp"

#include "Guid.hpp"
#include "UniString.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace updates {
namespace {

/// The add-on's line buffer: a longer line goes on as a line of its own.
constexpr std::size_t LongestPiece = 2047;
constexpr std::size_t FieldsOfALine = 4;

/// As the add-on reads the first field.
std::optional<Guid> parseGuid(std::string_view text) {
    GS::Guid hostGuid;
    if (hostGuid.ConvertFromString(GS::UniString(text.data(), static_cast<USize>(text.size()))) != NoError)
        return std::nullopt;
    Guid guid;
    std::copy(std::begin(hostGuid.bytes), std::end(hostGuid.bytes), guid.begin());
    return guid;
}

/// The form of a GlobalId in the model's file: 22 digits of base 64, the first of two bits only.
bool looksLikeGlobalId(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";
    return text.size() == 22 && text.front() >= '0' && text.front() <= '3' &&
           text.find_first_not_of(digits) == std::string_view::npos;
}

bool inQuotes(std::string_view field) {
    return field.size() >= 2 && field.front() == '"' && field.back() == '"';
}

}  // namespace

void LineNotes::add(std::uint64_t line) {
    ++count;
    if (first.size() < Kept) first.push_back(line);
}

UpdateFileScan::UpdateFileScan(Knows theKnows) : knows(std::move(theKnows)) {
    piece.reserve(LongestPiece);
}

void UpdateFileScan::read(std::string_view block) {
    if (beginning.size() < BytesThatTell) beginning += block.substr(0, BytesThatTell - beginning.size());
    for (const char byte : block) readByte(byte);
}

void UpdateFileScan::readByte(char byte) {
    const bool secondOfPair = byte == '\n' && lastWasReturn;
    lastWasReturn = byte == '\r';
    if (byte == '\r' || byte == '\n') {
        if (!secondOfPair) endLine();
        return;
    }
    if (++lineBytes == LongestPiece + 1) findings.overlong.add(line);
    piece += byte;
    if (piece.size() == LongestPiece) endPiece();
}

void UpdateFileScan::endLine() {
    if (!piece.empty()) endPiece();
    if (lineBytes > 0) ++findings.lines;
    lineBytes = 0;
    ++line;
}

void UpdateFileScan::endPiece() {
    ++findings.pieces;
    // The rest of a cut line means nothing by itself; that the line was cut is noted.
    if (lineBytes <= LongestPiece) examine(piece);
    piece.clear();
}

void UpdateFileScan::examine(std::string_view text) {
    // A cut may fall into the middle of a character.
    if (text.size() < LongestPiece && !isWellFormed(text)) findings.notUtf8.add(line);
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos) {
        findings.zeroBytes.add(line);
        text = text.substr(0, zero);
    }
    if (text.empty() || text.front() == '\t')
        findings.leadingTab.add(line);
    else
        examineFields(text);
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
    if (fields < FieldsOfALine) findings.fewFields.add(line);
    if (quotes) findings.quoted.add(line);
}

void UpdateFileScan::examineGuid(std::string_view field) {
    const auto guid = parseGuid(field);
    if (guid && !knows(*guid)) findings.unknownElement.add(line);
    if (guid) return;
    findings.noGuid.add(line);
    if (looksLikeGlobalId(field)) findings.globalId.add(line);
}

UpdateFileFindings UpdateFileScan::finish() {
    if (lineBytes > 0) ++findings.lines;
    // A line whose length is a multiple of the buffer's was handed on whole, end or not.
    if (!piece.empty()) findings.lineWithoutEnd = line;
    const FileKind kind = tellFileKind(beginning);
    findings.byteOrderMark = kind == FileKind::TextWithByteOrderMark;
    findings.utf16 = kind == FileKind::Utf16;
    findings.binary = kind == FileKind::Binary;
    return std::move(findings);
}

}  // namespace updates
