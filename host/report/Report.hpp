#pragma once
// What is handed on after the work: which model, what was done to it, what came of it. For people who have never seen
// the program; as a page, as JSON, as a workbook: Html.cpp, Json.cpp, Workbook.cpp.

#include "model/Model.hpp"
#include "text/Message.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace report {

/// How a row or a number is to be taken.
enum class Tone : std::uint8_t {
    Plain,
    Good,  ///< Changed as was asked.
    Note,  ///< Worth a look: stored otherwise, in conflict, left out.
    Bad,   ///< Refused.
};
/// "good": as a class in the page, and in the JSON.
const char* nameOf(Tone tone);

/// One item of an element.
struct Row {
    std::string item;
    std::optional<std::string> old, now;  ///< Nothing where the item is not there, or is told by its name alone.
    Tone tone = Tone::Good;
    std::string remark;                ///< What became of it, with the reason.
    std::optional<std::string> asked;  ///< Where something else was asked for than was stored.
};

inline constexpr text::Phrase Added = text::phrase("added"), Removed = text::phrase("removed");

/// An element and what is to be said of it.
struct Subject {
    std::string guid, globalId, ifcClass, name;
    text::Phrase type;    ///< As the host calls it, "Wall"; in English in the JSON.
    std::string storey;   ///< Empty where it stands in none.
    text::Phrase remark;  ///< Added or Removed; none for an element whose rows say it all.
    std::vector<Row> rows;
};

struct Corner {
    double x = 0, y = 0;
};

/// An element's outline seen from above, with its holes; a single corner where only its place is known.
struct Outline {
    std::vector<std::vector<Corner>> rings;
    std::vector<std::vector<Corner>> lines;  ///< Over it: a door's swing, a stair's steps.
    bool area = false;                       ///< A floor or a room, drawn under what stands on it.
    bool cut = false;                        ///< A wall or column: dark.
    std::optional<std::size_t> subject;      ///< Of those that the report is about: its index.
};

/// A storey seen from above; y points up. What lies first is drawn first.
struct Plan {
    std::string storey;
    std::vector<Outline> outlines;
    std::size_t notDrawn = 0;  ///< Elements left out because there are too many to draw.
};

struct Fact {
    text::Phrase label;  ///< Unlike the text, in English in the JSON, where it is a key.
    std::string text;
};

struct Sum {
    text::Phrase label;  ///< As that of a fact.
    std::uint64_t count = 0;
    Tone tone = Tone::Plain;
    text::Phrase one = {};  ///< What a page writes behind a count of 1; empty: the label.
};

struct Report {
    std::string title;  ///< "Changes to house.ifc"
    std::vector<Fact> facts;
    std::vector<Sum> sums;
    std::vector<Subject> subjects;   ///< Sorted by storey and type by arrange().
    std::vector<Plan> plans;         ///< Of the storeys that have one, by the name that the subjects bear.
    std::vector<std::string> notes;  ///< Whatever else is to be said, complete sentences without period.
};

/// Puts the subjects of one storey together, and there those of one type; otherwise as they are.
void arrange(std::vector<Subject>& subjects);

/// An element as `list` tells it, with its storey.
Subject subjectOf(const model::Model& model, model::Element element);

/// The report as one HTML file that needs nothing besides itself. Whatever texts it is made of, it is well-formed, and
/// none of them is taken for markup.
std::string toHtml(const Report& report);

/// The same as JSON; one line with its line end.
std::string toJson(const Report& report);

/// The rows as a workbook. @return an Error where it cannot be made.
model::Result<std::string> toWorkbook(const Report& report);

}  // namespace report
