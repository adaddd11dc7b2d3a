#pragma once
// Reads the frame of a file: its sections, and what stands in them. Whatever the sweep does not take is looked at here,
// token by token.
//
// ISO 10303-21, exchange structure: ISO-10303-21; HEADER; ... ENDSEC; [ANCHOR; ... ENDSEC;] [REFERENCE; ... ENDSEC;]
// {DATA; ... ENDSEC;} END-ISO-10303-21; {SIGNATURE ... ENDSEC;}. Files in the wild leave any of it out, so only the
// first word is insisted on; the rest is remarked, and as much is used as can be told for certain.

#include "model/base/Progress.hpp"
#include "model/base/Result.hpp"
#include "model/step/index/Index.hpp"
#include "model/step/reading/SweepAhead.hpp"
#include "model/step/syntax/Tokens.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace model::step {

class SectionReader {
public:
    /// @param index, progress  not copied, both outlive the reader.
    SectionReader(Index& index, const Progress& progress, const Sharing& sharing);
    /// Once. @return an error where it is no file in clear-text encoding, or where the progress was cancelled.
    Status run();

private:
    /// "ISO-10303-21;", behind a byte-order mark that some programs write although the text is ASCII.
    bool readMagic();
    /// The section, or whatever begins here. @return false at the end of the file.
    bool readPart();
    bool readSection(std::string_view name);
    void readHeader();
    void readHeaderEntry(std::string_view keyword);
    /// An ANCHOR or REFERENCE section. Only its extent matters: it is kept, and ids in it are taken.
    void readLinks(std::string_view keyword);
    void skipLinkToken();
    void readSignature();
    /// What stands behind END-ISO-10303-21: zeros of a preallocated file, or a second file appended by mistake.
    void readRestOfFile();

    void readData();
    void readInstances();
    void take(const SweptStretch& stretch);
    /// One thing that the sweep left. @return false at the end of the section.
    bool readStatement();
    bool readWordInData();
    void readInstance();
    /// Ends the section before `at`. @return false: there is no more of it.
    bool closeData(const char* at);
    /// Remembers that the section is sound as far as here: new instances may be put here, behind the end of the line.
    void noteSound();

    /// Reports what is wrong at `begin` and goes on where an instance or the end of the section seems to begin.
    void passMalformed(const char* begin, const std::string& what);
    /// Reports what is wrong at `begin` and goes on behind the next semicolon.
    void passToSemicolon(const char* begin, const std::string& what);
    void endTruncated(const std::string& what);

    /// Goes on at `next`. What was read beyond it was read in vain; with too much of that, byLayout_ begins.
    void goOnAt(const char* next);
    /// nextStatement() behind `begin`.
    const char* nextStart(const char* begin);
    const char* behindSemicolon(const char* begin) const;
    /// Runs `scan`, a function of a Cursor, from here on; byLayout_, no further than `limit` of here.
    template <class Scan, class Limit>
    bool scanHere(const Scan& scan, const Limit& limit);
    void remark(const char* at, std::string message) { index_.remark(offset(at), std::move(message)); }
    bool onlyZerosLeft() const {
        return index_.bytes.find_first_not_of('\0', offset(cursor_.at)) == std::string_view::npos;
    }
    /// The word here, "END-ISO-10303-21" for one. Empty where there is none.
    std::string_view word();
    /// Passes blanks, comments and a semicolon, or nothing.
    bool passSemicolon();
    std::uint64_t offset(const char* at) const { return static_cast<std::uint64_t>(at - index_.bytes.data()); }
    bool reportProgress();

    Index& index_;
    Throttle progress_;
    Sharing sharing_;
    std::optional<SweepAhead> ahead_;  ///< From the first DATA section to the end of the file, whatever stands there.
    Cursor cursor_;
    Section section_;         ///< The one being read.
    bool malformed_ = false;  ///< Since the last sound instance.
    bool ended_ = false;      ///< END-ISO-10303-21 was read.
    bool cancelled_ = false;  ///< By the progress function.

    std::uint64_t readInVain_ = 0;  ///< Bytes that will be read again.
    /// In a file that is broken throughout, each of many statements may seem to reach to its end, which reading them
    /// one after the other would take time with the square of their number. From then on a statement ends where, by
    /// its layout, the next one begins, even inside what may be a string.
    bool byLayout_ = false;
    const char* nextStartFrom_ = nullptr;  ///< Behind which nextStart_ was looked for.
    const char* nextStart_ = nullptr;
    const char* noBracketUntil_ = nullptr;  ///< In ANCHOR and REFERENCE: before here, no '>' closes a '<',
    const char* noQuoteUntil_ = nullptr;    ///< and no quote a string.
};

}  // namespace model::step
