#include "model/step/FrameReader.hpp"

#include "model/step/ForeignFiles.hpp"
#include "model/step/Resync.hpp"

#include <unicode/unistr.h>

namespace model::step {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view magic = "ISO-10303-21";
constexpr std::string_view fileEnd = "END-ISO-10303-21";

std::string toUtf8(const std::u16string& text) {
    std::string utf8;
    icu::UnicodeString(false, text.data(), static_cast<int32_t>(text.size())).toUTF8String(utf8);
    return utf8;
}

bool startsIgnoringCase(std::string_view text, std::string_view start) {
    return equalIgnoringCase(text.substr(0, start.size()), start);
}

}  // namespace

FrameReader::FrameReader(Index& target, const Progress& function)
    : index(target), progress(function), cursor(target.bytes) {}

Status FrameReader::run() {
    if (!readMagic()) return Error{ErrorKind::CannotRead, describeForeignFile(index.bytes)};
    while (readPart()) {
    }
    if (cancelled) return Error{ErrorKind::CannotRead, "opening was cancelled"};
    return {};
}

bool FrameReader::readMagic() {
    if (index.bytes.starts_with(byteOrderMark)) cursor.at += byteOrderMark.size();
    if (!skipBlanks(cursor) || !equalIgnoringCase(word(), magic)) return false;
    if (!passSemicolon()) remark(cursor.at, "the semicolon behind ISO-10303-21 is missing");
    return true;
}

bool FrameReader::readPart() {
    if (cancelled) return false;
    if (!skipBlanks(cursor)) {
        remark(cursor.at, std::string(cursor.problem) + "; nothing behind it is used");
        return false;
    }
    const char* at = cursor.at;
    const std::string_view name = word();
    if (ended && !equalIgnoringCase(name, "SIGNATURE")) {
        cursor.at = at;
        readRestOfFile();
        return false;
    }
    if (name.empty() && onlyZerosLeft()) {
        endTruncated("END-ISO-10303-21 is missing");
        return false;
    }
    if (!readSection(name)) {
        cursor.at = at;
        passToSemicolon("unexpected text outside the sections");
    }
    return true;
}

bool FrameReader::readSection(std::string_view name) {
    if (equalIgnoringCase(name, "HEADER")) {
        readHeader();
    } else if (equalIgnoringCase(name, "DATA")) {
        readData();
    } else if ((equalIgnoringCase(name, "ANCHOR") || equalIgnoringCase(name, "REFERENCE")) && passSemicolon()) {
        readLinks(name);
    } else if (equalIgnoringCase(name, "SIGNATURE")) {
        readSignature();
    } else if (equalIgnoringCase(name, fileEnd)) {
        if (!passSemicolon()) remark(cursor.at, "the semicolon behind END-ISO-10303-21 is missing");
        ended = true;
    } else {
        return false;
    }
    return true;
}

void FrameReader::readHeader() {
    if (!passSemicolon()) remark(cursor.at, "the semicolon behind HEADER is missing");
    while (skipBlanks(cursor) && !cursor.atEnd()) {
        const char* at = cursor.at;
        const std::string_view name = word();
        if (equalIgnoringCase(name, "ENDSEC")) {
            if (!passSemicolon()) remark(at, "the semicolon behind ENDSEC is missing");
            return;
        }
        if (equalIgnoringCase(name, "DATA") || equalIgnoringCase(name, fileEnd)) {
            cursor.at = at;
            remark(at, "ENDSEC of the header is missing");
            return;
        }
        cursor.at = at;
        readHeaderEntry(scanKeyword(cursor));
    }
}

void FrameReader::readHeaderEntry(std::string_view keyword) {
    const char* begin = cursor.at - keyword.size();
    std::vector<Value> arguments;
    if (keyword.empty() || !skipBlanks(cursor) || !scanList(cursor, &arguments) || !passSemicolon()) {
        cursor.at = begin;
        passToSemicolon("a malformed entry of the header");
        return;
    }
    if (!equalIgnoringCase(keyword, "FILE_SCHEMA") || arguments.empty()) return;
    std::vector<Value> names;
    splitAggregate(arguments[0], names);
    for (const Value& name : names) {
        std::u16string text;
        decodeString(name.text, text);
        index.schemaNames.push_back(toUtf8(text));
    }
}

void FrameReader::readLinks(std::string_view keyword) {
    const char* begin = cursor.at;
    while (skipBlanks(cursor) && !cursor.atEnd()) {
        const std::string_view name = word();
        if (equalIgnoringCase(name, "ENDSEC")) {
            passSemicolon();
            index.linkSections.push_back({offset(begin), offset(cursor.at)});
            return;
        }
        if (name.empty()) skipLinkToken();
    }
    index.linkSections.push_back({offset(begin), index.bytes.size()});
    endTruncated("ENDSEC of the section " + toUpperCase(keyword) + " is missing");
}

void FrameReader::skipLinkToken() {
    // URIs and strings may hold any of the characters that mean something elsewhere, but here no line ends: a quote or
    // a bracket without its counterpart must not swallow the section's end.
    const char closing = cursor.sees('<') ? '>' : cursor.sees('\'') ? '\'' : '\0';
    const char* at = ++cursor.at;
    if (closing == '\0') return;
    while (!cursor.atEnd() && !isLineEnd(*cursor.at) && !cursor.sees(closing)) ++cursor.at;
    cursor.at = cursor.sees(closing) ? cursor.at + 1 : at;
}

void FrameReader::readSignature() {
    // Base-64 text, which has no tokens.
    index.signedFile = true;
    const char* begin = cursor.at;
    for (; !cursor.atEnd(); ++cursor.at) {
        if (!startsIgnoringCase({cursor.at, static_cast<std::size_t>(cursor.end - cursor.at)}, "ENDSEC")) continue;
        cursor.at += 6;
        if (passSemicolon()) return;
    }
    remark(begin, "ENDSEC of the section SIGNATURE is missing");
}

void FrameReader::readRestOfFile() {
    const std::string_view left(cursor.at, static_cast<std::size_t>(cursor.end - cursor.at));
    if (left.empty()) return;
    const bool padding = left.find_first_not_of('\0') == std::string_view::npos;
    remark(cursor.at, std::to_string(left.size()) + (padding ? " zero bytes" : " bytes") +
                          " behind the end of the file; they are kept as they are");
    cursor.at = cursor.end;
}

void FrameReader::passMalformed(const char* begin, const std::string& what) {
    remark(begin, what);
    malformed = true;
    cursor.problem = nullptr;
    cursor.at = nextStatement(begin, cursor.end);
}

void FrameReader::passToSemicolon(const std::string& what) {
    remark(cursor.at, what);
    cursor.problem = nullptr;
    const std::size_t found = index.bytes.find(';', offset(cursor.at));
    cursor.at = found == std::string_view::npos ? cursor.end : index.bytes.data() + found + 1;
}

void FrameReader::endTruncated(const std::string& what) {
    ended = true;
    cursor.at = cursor.end;
    const bool padded = index.bytes.ends_with('\0');
    remark(cursor.end, "the file is not complete: " + what +
                           (padded ? "; it ends in zero bytes, so writing or copying it was probably interrupted"
                                   : "; writing or copying it was probably interrupted"));
}

std::string_view FrameReader::word() {
    const char* begin = cursor.at;
    if (cursor.atEnd() || !isLetter(*begin)) return {};
    while (!cursor.atEnd() && (isKeywordCharacter(*cursor.at) || cursor.sees('-'))) ++cursor.at;
    return {begin, static_cast<std::size_t>(cursor.at - begin)};
}

bool FrameReader::passSemicolon() {
    const char* at = cursor.at;
    if (skipBlanks(cursor) && cursor.sees(';')) {
        ++cursor.at;
        return true;
    }
    cursor.at = at;
    cursor.problem = nullptr;
    return false;
}

bool FrameReader::reportProgress() {
    // Reading the bytes was the first half.
    if (!progress.report((index.bytes.size() + offset(cursor.at)) / 2, index.bytes.size())) cancelled = true;
    return !cancelled;
}

}  // namespace model::step
