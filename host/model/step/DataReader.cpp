// The part of the FrameReader that reads DATA sections.

#include "model/step/FrameReader.hpp"
#include "model/step/Sweep.hpp"

#include <algorithm>
#include <limits>

namespace model::step {

namespace {

constexpr std::ptrdiff_t stretch = std::ptrdiff_t{16} << 20U;  ///< Swept between two reports of progress.

}  // namespace

void FrameReader::readData() {
    section = {offset(cursor.at), offset(cursor.at), offset(cursor.at)};
    const char* begin = cursor.at;
    const bool listed = skipBlanks(cursor) && (!cursor.sees('(') || scanList(cursor, nullptr));
    if (!listed || !passSemicolon()) passMalformed(begin, "the beginning of the section DATA is malformed");
    noteSound();
    while (reportProgress()) {
        const char* limit = cursor.at + std::min(stretch, cursor.end - cursor.at);
        const char* swept = sweep(cursor.at, limit, index);
        const bool moved = swept != cursor.at;
        cursor.at = swept;
        if (moved) noteSound();
        if (limit == cursor.end || limit - swept > stretch / 2) {
            if (!readStatement()) return;
        }
    }
}

bool FrameReader::readStatement() {
    const char* begin = cursor.at;
    if (!skipBlanks(cursor)) {
        while (isBlank(*begin)) ++begin;
        passMalformed(begin, cursor.problem);
        return true;
    }
    if (onlyZerosLeft()) {
        section.end = index.bytes.size();
        index.sections.push_back(section);
        endTruncated("ENDSEC and END-ISO-10303-21 are missing");
        return false;
    }
    if (cursor.sees('#')) {
        readInstance();
    } else if (isLetter(*cursor.at)) {
        return readWordInData();
    } else if (cursor.sees(';')) {
        ++cursor.at;
        noteSound();
    } else {
        passMalformed(cursor.at, "unexpected text between the instances");
    }
    return true;
}

bool FrameReader::readWordInData() {
    const char* at = cursor.at;
    const std::string_view name = word();
    if (equalIgnoringCase(name, "ENDSEC")) {
        if (!passSemicolon()) remark(at, "the semicolon behind ENDSEC is missing");
        return closeData(at);
    }
    if (equalIgnoringCase(name, "END-ISO-10303-21") || equalIgnoringCase(name, "DATA")) {
        remark(at, "ENDSEC is missing");
        cursor.at = at;
        return closeData(at);
    }
    passMalformed(at, "unexpected text between the instances");
    return true;
}

bool FrameReader::closeData(const char* at) {
    section.end = offset(at);
    const char* line = at;
    while (line != index.bytes.data() && (line[-1] == ' ' || line[-1] == '\t')) --line;
    const bool firstOnLine = line != index.bytes.data() && isLineEnd(line[-1]);
    // Behind malformed text another reader may not see new instances.
    if (!malformed) section.insertAt = offset(firstOnLine ? line : at);
    index.sections.push_back(section);
    return false;
}

void FrameReader::readInstance() {
    const char* begin = cursor.at;
    InstanceHead head;
    if (!scanInstance(cursor, head, nullptr)) {
        const std::string name = head.id == 0 ? "an instance" : "the instance #" + std::to_string(head.id);
        passMalformed(begin, name + " is malformed: " + cursor.problem + "; it is kept as it is and not used");
        return;
    }
    if (cursor.at - begin > std::numeric_limits<std::uint32_t>::max()) {
        remark(begin, "the instance #" + std::to_string(head.id) + " is longer than 4 GB; it is kept and not used");
        return;
    }
    const KeywordCode code = head.complex ? NoKeyword : index.keywords.intern(head.keyword);
    index.add(head.id, code, begin, cursor.at);
    noteSound();
}

void FrameReader::noteSound() {
    malformed = false;
    const char* at = cursor.at;
    while (at != cursor.end && (*at == ' ' || *at == '\t')) ++at;
    if (at != cursor.end && *at == '\r') ++at;
    if (at != cursor.end && *at == '\n') ++at;
    section.end = offset(at);
    section.insertAt = offset(at);
}

}  // namespace model::step
