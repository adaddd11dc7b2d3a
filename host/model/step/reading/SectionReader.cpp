#include "model/step/reading/SectionReader.hpp"

#include "model/step/reading/ForeignFiles.hpp"
#include "model/step/reading/Resync.hpp"
#include "model/step/reading/Sweep.hpp"
#include "model/step/syntax/Instance.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <limits>

namespace model::step {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Magic = "ISO-10303-21";
constexpr std::string_view FileEnd = "END-ISO-10303-21";

bool startsIgnoringCase(std::string_view text, std::string_view start) {
    return equalIgnoringCase(text.substr(0, start.size()), start);
}

constexpr std::ptrdiff_t Stretch = std::ptrdiff_t{16} << 20U;  ///< Swept between two reports of progress.

/// A file with an open string or two stays far below; a hundredth of a second is lost until the rule changes.
constexpr std::uint64_t MostReadInVain = std::uint64_t{16} << 20U;

bool skipSemicolon(Cursor& cursor) {
    if (!skipBlanks(cursor) || !cursor.sees(';')) return false;
    ++cursor.at;
    return true;
}

}  // namespace

SectionReader::SectionReader(Index& target, const Progress& function, const Sharing& sharing)
    : index_(target), progress_(function), sharing_(sharing), cursor_(target.bytes) {}

Status SectionReader::run() {
    if (!readMagic()) return Error{ErrorKind::CannotRead, describeForeignFile(index_.bytes)};
    while (readPart()) {
    }
    if (cancelled_) return Error{ErrorKind::CannotRead, text::message("opening was cancelled")};
    return {};
}

bool SectionReader::readMagic() {
    if (index_.bytes.starts_with(ByteOrderMark)) cursor_.at += ByteOrderMark.size();
    if (!skipBlanks(cursor_) || !equalIgnoringCase(word(), Magic)) return false;
    if (!passSemicolon()) remark(cursor_.at, text::message("the semicolon behind ISO-10303-21 is missing"));
    return true;
}

bool SectionReader::readPart() {
    if (cancelled_) return false;
    if (!skipBlanks(cursor_)) {
        remark(cursor_.at, text::message("{}; nothing behind it is used", cursor_.problem));
        return false;
    }
    const char* at = cursor_.at;
    const std::string_view name = word();
    // By the third edition of ISO 10303-21 signatures stand behind the end mark.
    if (ended_ && !equalIgnoringCase(name, "SIGNATURE")) {
        cursor_.at = at;
        readRestOfFile();
        return false;
    }
    if (name.empty() && onlyZerosLeft()) {
        endTruncated(text::message("END-ISO-10303-21 is missing"));
        return false;
    }
    if (!readSection(name)) passToSemicolon(at, text::message("unexpected text outside the sections"));
    return true;
}

bool SectionReader::readSection(std::string_view name) {
    if (equalIgnoringCase(name, "HEADER")) {
        readHeader();
    } else if (equalIgnoringCase(name, "DATA")) {
        readData();
    } else if ((equalIgnoringCase(name, "ANCHOR") || equalIgnoringCase(name, "REFERENCE")) && passSemicolon()) {
        readLinks(name);
    } else if (equalIgnoringCase(name, "SIGNATURE")) {
        readSignature();
    } else if (equalIgnoringCase(name, FileEnd)) {
        if (!passSemicolon()) remark(cursor_.at, text::message("the semicolon behind END-ISO-10303-21 is missing"));
        ended_ = true;
    } else {
        return false;
    }
    return true;
}

void SectionReader::readHeader() {
    if (!passSemicolon()) remark(cursor_.at, text::message("the semicolon behind HEADER is missing"));
    while (skipBlanks(cursor_) && !cursor_.atEnd()) {
        const char* at = cursor_.at;
        const std::string_view name = word();
        if (equalIgnoringCase(name, "ENDSEC")) {
            if (!passSemicolon()) remark(at, text::message("the semicolon behind ENDSEC is missing"));
            return;
        }
        if (equalIgnoringCase(name, "DATA") || equalIgnoringCase(name, FileEnd)) {
            cursor_.at = at;
            remark(at, text::message("ENDSEC of the header is missing"));
            return;
        }
        cursor_.at = at;
        readHeaderEntry(scanKeyword(cursor_));
    }
}

void SectionReader::readHeaderEntry(std::string_view keyword) {
    const char* begin = cursor_.at - keyword.size();
    std::vector<Value> arguments;
    const auto scan = [&arguments](Cursor& cursor) {
        return skipBlanks(cursor) && scanList(cursor, &arguments) && skipSemicolon(cursor);
    };
    if (keyword.empty() || !scanHere(scan, [this](const char* at) { return behindSemicolon(at); })) {
        passToSemicolon(begin, text::message("a malformed entry of the header"));
        return;
    }
    if (!equalIgnoringCase(keyword, "FILE_SCHEMA") || arguments.empty()) return;
    std::vector<Value> names;
    splitAggregate(arguments[0], names);
    for (const Value& name : names) {
        std::u16string text;
        decodeString(name.text, text);
        index_.schemaNames.push_back(text::toUtf8(text));
    }
}

void SectionReader::readLinks(std::string_view keyword) {
    const char* begin = cursor_.at;
    while (skipBlanks(cursor_) && !cursor_.atEnd()) {
        const std::string_view name = word();
        if (equalIgnoringCase(name, "ENDSEC")) {
            passSemicolon();
            index_.linkSections.push_back({offset(begin), offset(cursor_.at)});
            return;
        }
        if (name.empty()) skipLinkToken();
    }
    index_.linkSections.push_back({offset(begin), index_.bytes.size()});
    endTruncated(text::message("ENDSEC of the section {} is missing", toUpperCase(keyword)));
}

void SectionReader::skipLinkToken() {
    // URIs and strings may hold any of the characters that mean something elsewhere, but here no line ends: a quote or
    // a bracket without its counterpart must not swallow the section's end.
    const char opening = *cursor_.at;
    ++cursor_.at;
    if (opening != '<' && opening != '\'') return;
    const char closing = opening == '<' ? '>' : '\'';
    const char*& noneUntil = opening == '<' ? noBracketUntil_ : noQuoteUntil_;
    if (noneUntil != nullptr && cursor_.at < noneUntil) return;
    const char* at = cursor_.at;
    while (at != cursor_.end && !isLineEnd(*at) && *at != closing) ++at;
    if (at != cursor_.end && *at == closing) {
        cursor_.at = at + 1;
    } else {
        noneUntil = at;
    }
}

void SectionReader::readSignature() {
    // Base-64 text, which has no tokens: "/" and "+" in it begin neither comment nor number.
    index_.signedFile = true;
    const char* begin = cursor_.at;
    while (!cursor_.atEnd()) {
        if (!startsIgnoringCase({cursor_.at, static_cast<std::size_t>(cursor_.end - cursor_.at)}, "ENDSEC")) {
            ++cursor_.at;
            continue;
        }
        cursor_.at += 6;
        if (skipSemicolon(cursor_)) return;
    }
    cursor_.problem = {};
    remark(begin, text::message("ENDSEC of the section SIGNATURE is missing"));
}

void SectionReader::readRestOfFile() {
    const std::string_view left(cursor_.at, static_cast<std::size_t>(cursor_.end - cursor_.at));
    if (left.empty()) return;
    const bool padding = left.find_first_not_of('\0') == std::string_view::npos;
    remark(cursor_.at,
           padding ? text::message("{} zero bytes behind the end of the file; they are kept as they are", left.size())
                   : text::message("{} bytes behind the end of the file; they are kept as they are", left.size()));
    cursor_.at = cursor_.end;
}

void SectionReader::passMalformed(const char* begin, const std::string& what) {
    remark(begin, what);
    malformed_ = true;
    goOnAt(nextStart(begin));
}

void SectionReader::passToSemicolon(const char* begin, const std::string& what) {
    remark(begin, what);
    goOnAt(behindSemicolon(begin));
}

void SectionReader::goOnAt(const char* next) {
    if (cursor_.at > next) readInVain_ += static_cast<std::uint64_t>(cursor_.at - next);
    if (readInVain_ > MostReadInVain) byLayout_ = true;
    cursor_.at = next;
    cursor_.problem = {};
}

const char* SectionReader::nextStart(const char* begin) {
    // The same for all places before it, and asked for again and again where what is sound does not show by layout.
    if (nextStart_ == nullptr || begin < nextStartFrom_ || begin >= nextStart_) {
        nextStartFrom_ = begin;
        nextStart_ = nextStatement(begin, cursor_.end);
    }
    return nextStart_;
}

const char* SectionReader::behindSemicolon(const char* begin) const {
    const std::size_t found = index_.bytes.find(';', offset(begin));
    return found == std::string_view::npos ? cursor_.end : index_.bytes.data() + found + 1;
}

template <class Scan, class Limit>
bool SectionReader::scanHere(const Scan& scan, const Limit& limit) {
    if (!byLayout_) return scan(cursor_);
    const char* end = limit(cursor_.at);
    Cursor bounded({cursor_.at, static_cast<std::size_t>(end - cursor_.at)});
    const bool sound = scan(bounded);
    cursor_.at = bounded.at;
    cursor_.problem = bounded.problem;
    return sound;
}

void SectionReader::endTruncated(const std::string& what) {
    ended_ = true;
    cursor_.at = cursor_.end;
    const bool padded = index_.bytes.ends_with('\0');
    remark(cursor_.end,
           padded
               ? text::message("the file is not complete: {}; it ends in zero bytes, so writing or copying it was "
                               "probably interrupted",
                               what)
               : text::message("the file is not complete: {}; writing or copying it was probably interrupted", what));
}

std::string_view SectionReader::word() {
    const char* begin = cursor_.at;
    if (cursor_.atEnd() || !isLetter(*begin)) return {};
    while (!cursor_.atEnd() && (isKeywordCharacter(*cursor_.at) || cursor_.sees('-'))) ++cursor_.at;
    return {begin, static_cast<std::size_t>(cursor_.at - begin)};
}

bool SectionReader::passSemicolon() {
    const char* begin = cursor_.at;
    const auto blanksEnd = [this](const char* at) {
        while (at != cursor_.end && isBlank(*at)) ++at;
        return at == cursor_.end ? at : at + 1;
    };
    if (scanHere(skipSemicolon, blanksEnd)) return true;
    goOnAt(begin);
    return false;
}

bool SectionReader::reportProgress() {
    // Reading the bytes was the first half.
    if (!progress_.report((index_.bytes.size() + offset(cursor_.at)) / 2, index_.bytes.size())) cancelled_ = true;
    return !cancelled_;
}

// --- DATA sections ---

void SectionReader::readData() {
    section_ = {offset(cursor_.at), offset(cursor_.at), offset(cursor_.at)};
    const char* begin = cursor_.at;
    // Since its second edition ISO 10303-21 gives sections names: DATA('x',('IFC4'));
    const auto scan = [](Cursor& cursor) {
        return skipBlanks(cursor) && (!cursor.sees('(') || scanList(cursor, nullptr)) && skipSemicolon(cursor);
    };
    if (!scanHere(scan, [this](const char* at) { return nextStart(at); }))
        passMalformed(begin, text::message("the beginning of the section DATA is malformed"));
    noteSound();
    readInstances();
}

void SectionReader::readInstances() {
    if (!ahead_) ahead_.emplace(cursor_.at, cursor_.end, sharing_);
    while (reportProgress()) {
        const SweptStretch* stretch = ahead_->next(cursor_.at);
        if (stretch != nullptr && stretch->begin == cursor_.at) {
            take(*stretch);
            continue;
        }
        const char* limit = cursor_.at + std::min(Stretch, cursor_.end - cursor_.at);
        const bool toStretch = stretch != nullptr && stretch->begin <= limit;
        if (toStretch) limit = stretch->begin;
        const char* swept = sweep(cursor_.at, limit, index_);
        const bool moved = swept != cursor_.at;
        cursor_.at = swept;
        if (moved) noteSound();
        if (toStretch && swept == limit) continue;
        // Close to the limit the sweep ended because of it, and goes on from there. Else it met what it does not take;
        // reading one statement by tokens always moves on, so that this loop ends.
        if (toStretch || limit == cursor_.end || limit - swept > Stretch / 2) {
            if (!readStatement()) return;
        }
    }
}

/// Keywords get their codes in the order in which they come in the file, as if nobody had swept ahead.
void SectionReader::take(const SweptStretch& stretch) {
    constexpr std::uint32_t Unknown = 0xFFFFFFFFU;
    std::vector<std::uint32_t> codes(stretch.keywords.size(), Unknown);
    for (const SweptStretch::Found& found : stretch.found) {
        KeywordCode code = NoKeyword;
        if (found.keyword != NoKeyword) {
            std::uint32_t& known = codes[found.keyword];
            if (known == Unknown) known = index_.keywords.intern(stretch.keywords.text(found.keyword));
            code = static_cast<KeywordCode>(known);
        }
        index_.add(found.id, code, found.begin, found.begin + found.length);
    }
    cursor_.at = stretch.end;
    noteSound();
}

bool SectionReader::readStatement() {
    const char* begin = cursor_.at;
    if (!skipBlanks(cursor_)) {
        while (isBlank(*begin)) ++begin;
        passMalformed(begin, cursor_.problem.text());
        return true;
    }
    if (onlyZerosLeft()) {
        section_.end = index_.bytes.size();
        index_.sections.push_back(section_);
        endTruncated(text::message("ENDSEC and END-ISO-10303-21 are missing"));
        return false;
    }
    if (cursor_.sees('#')) {
        readInstance();
    } else if (isLetter(*cursor_.at)) {
        return readWordInData();
    } else if (cursor_.sees(';')) {
        ++cursor_.at;
        noteSound();
    } else {
        passMalformed(cursor_.at, text::message("unexpected text between the instances"));
    }
    return true;
}

bool SectionReader::readWordInData() {
    const char* at = cursor_.at;
    const std::string_view name = word();
    if (equalIgnoringCase(name, "ENDSEC")) {
        if (!passSemicolon()) remark(at, text::message("the semicolon behind ENDSEC is missing"));
        return closeData(at);
    }
    if (equalIgnoringCase(name, "END-ISO-10303-21") || equalIgnoringCase(name, "DATA")) {
        remark(at, text::message("ENDSEC is missing"));
        cursor_.at = at;
        return closeData(at);
    }
    passMalformed(at, text::message("unexpected text between the instances"));
    return true;
}

bool SectionReader::closeData(const char* at) {
    // New instances go before ENDSEC on lines of their own, in front of its indentation.
    section_.end = offset(at);
    const char* line = at;
    while (line != index_.bytes.data() && (line[-1] == ' ' || line[-1] == '\t')) --line;
    const bool firstOnLine = line != index_.bytes.data() && isLineEnd(line[-1]);
    // Behind malformed text another reader may not see new instances.
    if (!malformed_) section_.insertAt = offset(firstOnLine ? line : at);
    index_.sections.push_back(section_);
    return false;
}

void SectionReader::readInstance() {
    const char* begin = cursor_.at;
    InstanceHead head;
    const auto scan = [&head](Cursor& cursor) { return scanInstance(cursor, head, nullptr); };
    if (!scanHere(scan, [this](const char* at) { return nextStart(at); })) {
        passMalformed(begin, head.id == 0
                                 ? text::message("an instance is malformed: {}; it is kept as it is and not used",
                                                 cursor_.problem)
                                 : text::message("the instance #{} is malformed: {}; it is kept as it is and not used",
                                                 head.id, cursor_.problem));
        return;
    }
    if (cursor_.at - begin > std::numeric_limits<std::uint32_t>::max()) {
        remark(begin, text::message("the instance #{} is longer than 4 GB; it is kept and not used", head.id));
        return;
    }
    const KeywordCode code = head.complex ? NoKeyword : index_.keywords.intern(head.keyword);
    index_.add(head.id, code, begin, cursor_.at);
    noteSound();
}

void SectionReader::noteSound() {
    malformed_ = false;
    // A file cut short has no ENDSEC to insert before; what is added then goes behind the last instance's line.
    const char* at = cursor_.at;
    while (at != cursor_.end && (*at == ' ' || *at == '\t')) ++at;
    if (at != cursor_.end && *at == '\r') ++at;
    if (at != cursor_.end && *at == '\n') ++at;
    section_.end = offset(at);
    section_.insertAt = offset(at);
}

}  // namespace model::step
