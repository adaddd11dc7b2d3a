#include "updatefile/ExportLine.hpp"

#include "text/Message.hpp"
#include "text/Unicode.hpp"
#include "updatefile/Designation.hpp"

#include <algorithm>

namespace updatefile {
namespace {

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The add-on's buffer for a line, its line end not counted.
constexpr std::size_t LongestLine = 2047;

bool breaksLines(std::u16string_view text) {
    using namespace std::string_view_literals;
    return text.find_first_of(u"\t\r\n\0"sv) != std::u16string_view::npos;
}

Obstacle obstacleOfText(const CurrentText& current) {
    const std::u16string whole = current.text + current.classificationName;
    if (breaksLines(whole)) return Obstacle::LineBreaker;
    if (!text::isWellFormed(whole)) return Obstacle::NoUnicode;
    if (current.text.find(u'{') != std::u16string::npos) return Obstacle::Brace;
    const bool code = current.text == u".T." || current.text == u".F.";
    return code && current.classificationName.empty() ? Obstacle::BooleanCode : Obstacle::None;
}

Obstacle obstacleOf(const LineSubject& subject, const CurrentText& current) {
    if (current.source == CurrentText::Source::None) return Obstacle::NoItem;
    if (subject.nullGuid) return Obstacle::NoGuid;
    if (!subject.named) return Obstacle::NoName;
    if (!current.plain) return Obstacle::NoText;
    return obstacleOfText(current);
}

std::string fieldText(const CurrentText& current) {
    std::string text = text::toUtf8(current.text);
    if (!current.classificationName.empty())
        text.append("{").append(text::toUtf8(current.classificationName)).append("}");
    return text;
}

}  // namespace

model::Status checkItem(std::string_view item) {
    if (nameIn(item).empty()) {
        return model::Error{model::ErrorKind::BadName,
                            text::message("'{}' is no item: write an attribute, a property such as "
                                          "FireRating[WallCommon] or a classification",
                                          item)};
    }
    if (item.find_first_of("\t\r\n") != std::string_view::npos) {
        return model::Error{model::ErrorKind::BadName,
                            text::message("an item with a TAB or a line end fits into no update file")};
    }
    return {};
}

model::Result<std::vector<std::string>> parseItems(std::string_view text) {
    std::vector<std::string> items;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        items.emplace_back(trimmed(text.substr(start, comma - start)));
        if (const model::Status status = checkItem(items.back()); !status) return status.error();
        start = comma + 1;
    }
    return items;
}

std::string explain(Obstacle obstacle) {
    switch (obstacle) {
        case Obstacle::NoItem:
            return text::message("the element has no such item");
        case Obstacle::NoName:
            return text::message("the element has no Name, so the review list would refuse the line");
        case Obstacle::NoGuid:
            return text::message("the element's GUID is null, which names no element");
        case Obstacle::NoText:
            return text::message("a list, range, enumeration, table or reference is no text that could be changed");
        case Obstacle::LineBreaker:
            return text::message("the value holds a TAB, a line end or a zero, which a line cannot hold");
        case Obstacle::Brace:
            return text::message("the value holds a '{', which would end it");
        case Obstacle::BooleanCode:
            return text::message("the value is the text .T. or .F., which would be read as true or false");
        case Obstacle::NoUnicode:
            return text::message("the value holds half of a character, which UTF-8 cannot hold");
        case Obstacle::TooLong:
            return text::message("the line would be longer than 2047 bytes and be cut");
        case Obstacle::None:
            break;
    }
    return "";
}

ExportLine exportLine(const LineSubject& subject, std::string_view item, const CurrentText& current) {
    const Obstacle obstacle = obstacleOf(subject, current);
    if (obstacle != Obstacle::None) return {obstacle, {}};
    std::string value = fieldText(current);
    if (subject.guid.size() + item.size() + 2 * value.size() + 3 > LongestLine) return {Obstacle::TooLong, {}};
    return {Obstacle::None, std::move(value)};
}

}  // namespace updatefile
