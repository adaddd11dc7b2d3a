#pragma once
// Finds what is wrong with an update file. The add-on passes over such lines without a word, so the host tells the
// user. One pass over the bytes, cut into lines as the add-on cuts them. Memory does not grow with the file.

#include "text/Guid.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace updatefile {

using Guid = text::GuidBytes;

/// Lines that have something in common: how many, and the first few.
struct LineNotes {
    static constexpr std::size_t Kept = 5;
    std::uint64_t count = 0;
    std::vector<std::uint64_t> first;  ///< Line numbers from 1, as an editor counts them.

    void add(std::uint64_t line);
};

struct UpdateFileFindings {
    std::uint64_t lines = 0;   ///< That are not empty.
    std::uint64_t pieces = 0;  ///< That the add-on takes for lines: a line over 2047 bytes gives several.

    LineNotes withoutRow;      ///< Of which the add-on makes no row, for one of the reasons below.
    LineNotes noGuid;          ///< First field is no GUID of 36 characters.
    LineNotes globalId;        ///< Of those, a GlobalId of 22 characters.
    LineNotes unknownElement;  ///< A GUID that no element of the model has.
    LineNotes fewFields;
    LineNotes leadingTab;
    LineNotes overlong;
    LineNotes zeroBytes;
    LineNotes quoted;
    LineNotes notUtf8;
    std::uint64_t lineWithoutEnd = 0;  ///< The last line, where it has no line end; otherwise 0.
    bool byteOrderMark = false;        ///< Of UTF-8.
    bool utf16 = false;
    bool binary = false;   ///< Not a text file: a workbook, an archive, a program.
    bool ofTable = false;  ///< Made of a table, whose cells may all be as the model has them.
};

/// A line as the add-on hands it to its review.
struct UpdateLine {
    std::uint64_t number = 0;           ///< In the file, from 1, as an editor counts.
    std::array<std::string, 4> fields;  ///< Bytes as in the file; what the line lacks is kept from the one before.
};

class UpdateFileScan {
public:
    /// Gets each line that the add-on takes, in order; valid during the call.
    using Visit = std::function<void(const UpdateLine&)>;

    /// Whether the model has an element of the GUID.
    using Knows = std::function<bool(const Guid&)>;

    explicit UpdateFileScan(Knows knows, Visit visit = {});

    /// To be called with the file's bytes in order, in blocks of any size.
    void read(std::string_view block);
    UpdateFileFindings finish();

private:
    void readByte(char byte);
    void endLine();
    void endPiece();
    void countLine();
    void examine(std::string_view text);
    void examineFields(std::string_view text);
    void examineGuid(std::string_view field);
    void readFirstField(std::string_view piece);

    void cutFields(std::string_view text);

    Knows knows_;
    Visit visit_;
    UpdateLine kept_;
    UpdateFileFindings findings_;
    std::string piece_;
    std::string beginning_;  ///< The file's first bytes, to tell what it is.
    std::uint64_t line_ = 1;
    std::uint64_t lineBytes_ = 0;  ///< Of the current line so far.
    bool lastWasReturn_ = false;
    enum class FirstField : std::uint8_t { NoGuid, UnknownGuid, ElementGuid };
    FirstField firstField_ = FirstField::NoGuid;  ///< The add-on's: a piece that has none keeps that of an earlier one.
    bool lineGaveRow_ = false;                    ///< One of the current line's pieces did.
};

}  // namespace updatefile
