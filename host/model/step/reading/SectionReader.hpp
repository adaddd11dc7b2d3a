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
#include "model/step/syntax/Tokens.hpp"

#include <string>
#include <string_view>

namespace model::step {

class SectionReader {
public:
    /// @param index, progress  not copied, both outlive the reader.
    SectionReader(Index& index, const Progress& progress);
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
    void passToSemicolon(const std::string& what);
    void endTruncated(const std::string& what);
    void remark(const char* at, std::string message) { index_.remark(offset(at), std::move(message)); }
    bool onlyZerosLeft() const {
        return index_.bytes.find_first_not_of('\0', offset(cursor_.at)) == std::string_view::npos;
    }
    /// The word here, "END-ISO-10303-21" for one. Empty where there is none.
    std::string_view word();
    bool passSemicolon();
    std::uint64_t offset(const char* at) const { return static_cast<std::uint64_t>(at - index_.bytes.data()); }
    bool reportProgress();

    Index& index_;
    Throttle progress_;
    Cursor cursor_;
    Section section_;         ///< The one being read.
    bool malformed_ = false;  ///< Since the last sound instance.
    bool ended_ = false;      ///< END-ISO-10303-21 was read.
    bool cancelled_ = false;  ///< By the progress function.
};

}  // namespace model::step
