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
    section_ = {offset(cursor_.at), offset(cursor_.at), offset(cursor_.at)};
    const char* begin = cursor_.at;
    const bool listed = skipBlanks(cursor_) && (!cursor_.sees('(') || scanList(cursor_, nullptr));
    if (!listed || !passSemicolon()) passMalformed(begin, "the beginning of the section DATA is malformed");
    noteSound();
    while (reportProgress()) {
        const char* limit = cursor_.at + std::min(stretch, cursor_.end - cursor_.at);
        const char* swept = sweep(cursor_.at, limit, index_);
        const bool moved = swept != cursor_.at;
        cursor_.at = swept;
        if (moved) noteSound();
        if (limit == cursor_.end || limit - swept > stretch / 2) {
            if (!readStatement()) return;
        }
    }
}

bool FrameReader::readStatement() {
    const char* begin = cursor_.at;
    if (!skipBlanks(cursor_)) {
        while (isBlank(*begin)) ++begin;
        passMalformed(begin, cursor_.problem);
        return true;
    }
    if (onlyZerosLeft()) {
        section_.end = index_.bytes.size();
        index_.sections.push_back(section_);
        endTruncated("ENDSEC and END-ISO-10303-21 are missing");
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
        passMalformed(cursor_.at, "unexpected text between the instances");
    }
    return true;
}

bool FrameReader::readWordInData() {
    const char* at = cursor_.at;
    const std::string_view name = word();
    if (equalIgnoringCase(name, "ENDSEC")) {
        if (!passSemicolon()) remark(at, "the semicolon behind ENDSEC is missing");
        return closeData(at);
    }
    if (equalIgnoringCase(name, "END-ISO-10303-21") || equalIgnoringCase(name, "DATA")) {
        remark(at, "ENDSEC is missing");
        cursor_.at = at;
        return closeData(at);
    }
    passMalformed(at, "unexpected text between the instances");
    return true;
}

bool FrameReader::closeData(const char* at) {
    section_.end = offset(at);
    const char* line = at;
    while (line != index_.bytes.data() && (line[-1] == ' ' || line[-1] == '\t')) --line;
    const bool firstOnLine = line != index_.bytes.data() && isLineEnd(line[-1]);
    // Behind malformed text another reader may not see new instances.
    if (!malformed_) section_.insertAt = offset(firstOnLine ? line : at);
    index_.sections.push_back(section_);
    return false;
}

void FrameReader::readInstance() {
    const char* begin = cursor_.at;
    InstanceHead head;
    if (!scanInstance(cursor_, head, nullptr)) {
        const std::string name = head.id == 0 ? "an instance" : "the instance #" + std::to_string(head.id);
        passMalformed(begin, name + " is malformed: " + cursor_.problem + "; it is kept as it is and not used");
        return;
    }
    if (cursor_.at - begin > std::numeric_limits<std::uint32_t>::max()) {
        remark(begin, "the instance #" + std::to_string(head.id) + " is longer than 4 GB; it is kept and not used");
        return;
    }
    const KeywordCode code = head.complex ? NoKeyword : index_.keywords.intern(head.keyword);
    index_.add(head.id, code, begin, cursor_.at);
    noteSound();
}

void FrameReader::noteSound() {
    malformed_ = false;
    const char* at = cursor_.at;
    while (at != cursor_.end && (*at == ' ' || *at == '\t')) ++at;
    if (at != cursor_.end && *at == '\r') ++at;
    if (at != cursor_.end && *at == '\n') ++at;
    section_.end = offset(at);
    section_.insertAt = offset(at);
}

}  // namespace model::step
