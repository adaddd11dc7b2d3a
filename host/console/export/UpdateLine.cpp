#include "console/export/UpdateLine.hpp"

#include "console/output/Text.hpp"

namespace console {
namespace {

/// The add-on's buffer for a line, its line end not counted.
constexpr std::size_t LongestLine = 2047;

bool breaksLines(std::u16string_view text) {
    using namespace std::string_view_literals;
    return text.find_first_of(u"\t\r\n\0"sv) != std::u16string_view::npos;
}

Obstacle obstacleOfText(const CurrentText& current) {
    const std::u16string whole = current.text + current.classificationName;
    if (breaksLines(whole)) return Obstacle::LineBreaker;
    if (!isWellFormed(whole)) return Obstacle::NoUnicode;
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
    std::string text = toUtf8(current.text);
    if (!current.classificationName.empty()) text.append("{").append(toUtf8(current.classificationName)).append("}");
    return text;
}

}  // namespace

const char* explain(Obstacle obstacle) {
    switch (obstacle) {
        case Obstacle::NoItem:
            return "the element has no such item";
        case Obstacle::NoName:
            return "the element has no Name, so the review list would refuse the line";
        case Obstacle::NoGuid:
            return "the element's GUID is null, which names no element";
        case Obstacle::NoText:
            return "a list, range, enumeration, table or reference is no text that could be changed";
        case Obstacle::LineBreaker:
            return "the value holds a TAB, a line end or a zero, which a line cannot hold";
        case Obstacle::Brace:
            return "the value holds a '{', which would end it";
        case Obstacle::BooleanCode:
            return "the value is the text .T. or .F., which would be read as true or false";
        case Obstacle::NoUnicode:
            return "the value holds half of a character, which UTF-8 cannot hold";
        case Obstacle::TooLong:
            return "the line would be longer than 2047 bytes and be cut";
        case Obstacle::None:
            break;
    }
    return "";
}

UpdateLine updateLine(const LineSubject& subject, std::string_view item, const CurrentText& current) {
    const Obstacle obstacle = obstacleOf(subject, current);
    if (obstacle != Obstacle::None) return {obstacle, {}};
    std::string value = fieldText(current);
    if (subject.guid.size() + item.size() + 2 * value.size() + 3 > LongestLine) return {Obstacle::TooLong, {}};
    return {Obstacle::None, std::move(value)};
}

}  // namespace console
