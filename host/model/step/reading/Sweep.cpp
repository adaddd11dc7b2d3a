#include "model/step/reading/Sweep.hpp"

// Compiled once for each set of vector instructions; which of them runs is chosen where the program does.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "model/step/reading/Sweep.cpp"
#include <hwy/foreach_target.h>

#include "model/step/reading/Block-inl.hpp"
#include "model/step/syntax/Characters.hpp"

#include <bit>
#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace model::step::HWY_NAMESPACE {

namespace {

/// Longer ones are rare; and a string that is never closed must not send each line of a broken file to its end: the
/// sweep would begin anew behind each such line.
constexpr std::ptrdiff_t LongestInstance = std::ptrdiff_t{1} << 16U;

bool isSpelledRight(std::string_view keyword) {
    if (keyword.starts_with('!')) keyword.remove_prefix(1);
    if (keyword.empty() || isDigit(keyword.front())) return false;
    for (const char c : keyword)
        if (!isKeywordCharacter(c)) return false;
    return true;
}

/// @tparam Target  knows keywords, and takes what is found.
template <class Target>
class Sweeper {
public:
    Sweeper(const char* from, const char* limit, Target& target) : target_(target), instance_(from), limit_(limit) {}

    const char* run() {
        const char* at = instance_;
        while (at < limit_ && at - instance_ < LongestInstance && take(at)) at += Block::Size;
        return instance_;
    }

private:
    /// What is known of the instance so far.
    struct Shape {
        const char* equals = nullptr;
        const char* opening = nullptr;  ///< The first parenthesis.
        int depth = 0;
        bool odd = false;  ///< It has a second '='.
    };

    /// One block. False at the first thing that is not of the usual form; what was indexed before it stays so.
    bool take(const char* at) {
        const Block block = readBlock(at);
        const std::uint64_t inside = prefixParity(block.quotes) ^ inString_;
        const std::uint64_t stringEnds = block.quotes & ~inside;
        const std::uint64_t behindStrings = stringEnds << 1U | stringEndBefore_;
        // Quotes tell what is inside strings only as long as each is one. A slash may begin a comment, which may hold a
        // single apostrophe. A line end inside a string, or a letter right behind one, is what a string that was never
        // closed looks like: everything after it would be taken for its opposite.
        Marks marks{block.equals & ~inside, block.opening & ~inside, block.closing & ~inside,
                    (block.slashes & ~inside) | (block.controls & inside) | (block.beyondSlash & behindStrings)};
        std::uint64_t ends = block.semicolons & ~inside;
        if (limit_ - at < Block::Size) ends &= (std::uint64_t{1} << (limit_ - at)) - 1;
        for (; ends != 0; ends &= ends - 1) {
            const std::uint64_t upToEnd = ends ^ (ends - 1);
            if (!note(at, marks.only(upToEnd)) || !finish(at + std::countr_zero(ends))) return false;
            marks = marks.only(~upToEnd);
        }
        inString_ = (inside >> 63U) == 0 ? 0 : ~std::uint64_t{0};
        stringEndBefore_ = stringEnds >> 63U;
        return note(at, marks);
    }

    /// Bits of what stands outside strings, and of what the sweep leaves to the reader of tokens.
    struct Marks {
        std::uint64_t equals, opening, closing, suspicious;
        Marks only(std::uint64_t bits) const {
            return {equals & bits, opening & bits, closing & bits, suspicious & bits};
        }
    };

    bool note(const char* at, const Marks& marks) {
        if (marks.suspicious != 0) return false;
        if (marks.equals != 0) {
            shape_.odd = shape_.equals != nullptr || (marks.equals & (marks.equals - 1)) != 0;
            shape_.equals = at + std::countr_zero(marks.equals);
        }
        if (marks.opening != 0 && shape_.opening == nullptr) shape_.opening = at + std::countr_zero(marks.opening);
        shape_.depth += difference(marks.opening, marks.closing);
        return !shape_.odd;
    }

    /// "#12 = KEYWORD ( ... ) ;" from instance to semicolon. What stands between the parentheses is looked at when it
    /// is read: a value that is malformed must not cost its instance.
    bool finish(const char* semicolon) {
        // A missing semicolon shows as a second '=', a missing parenthesis as a depth: then the next instance would be
        // swallowed by this one.
        if (shape_.depth != 0 || shape_.equals == nullptr || shape_.opening == nullptr ||
            shape_.opening < shape_.equals)
            return false;
        const char* at = instance_;
        while (isBlank(*at)) ++at;
        const char* begin = at;
        const InstanceId id = readId(at);
        if (id == 0) return false;
        const char* last = semicolon - 1;
        while (isBlank(*last)) --last;
        if (*last != ')') return false;
        KeywordCode code = NoKeyword;
        if (!readKeyword(code)) return false;
        target_.add(id, code, begin, semicolon + 1);
        instance_ = semicolon + 1;
        shape_ = {};
        return true;
    }

    /// 0 where it is not of the usual form. Up to 18 digits fit 64 bits without a look at each; longer ids are legal
    /// and left to the reader of tokens.
    InstanceId readId(const char* at) const {
        if (*at != '#') return 0;
        const char* digits = ++at;
        if (const InstanceId id = readFewDigits(digits); id != 0) return id;
        InstanceId id = 0;
        for (; isDigit(*at); ++at) id = id * 10 + static_cast<InstanceId>(*at - '0');
        const bool fits = at - digits <= 18;
        while (isBlank(*at)) ++at;
        return fits && at == shape_.equals ? id : 0;
    }

    /// Up to eight digits right before the equals sign, all at once; 0 where something else stands there.
    InstanceId readFewDigits(const char* digits) const {
        const std::ptrdiff_t count = shape_.equals - digits;
        if (std::endian::native != std::endian::little || count <= 0 || count > 8) return 0;
        // The eight bytes before the sign are the file's: a DATA section is never its beginning. Those that are none of
        // the number become zeros, which stand before it.
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, shape_.equals - 8, sizeof bytes);
        constexpr std::uint64_t Zeros = 0x3030303030303030U;
        const unsigned others = 64U - 8U * static_cast<unsigned>(count);
        std::uint64_t value = bytes ^ Zeros;
        if (others != 0) value = value >> others << others;
        // Each byte now holds a digit's value, unless it is above 9.
        constexpr std::uint64_t HighNibbles = 0xF0F0F0F0F0F0F0F0U;
        constexpr std::uint64_t Sixes = 0x0606060606060606U;
        if (((value | (value + Sixes)) & HighNibbles) != 0) return 0;
        // Neighbours are put together: digits to pairs, pairs to fours, fours to all eight.
        value = (value * 10 + (value >> 8U)) & 0x00FF00FF00FF00FFU;
        value = (value * 100 + (value >> 16U)) & 0x0000FFFF0000FFFFU;
        return (value * 10000 + (value >> 32U)) & 0xFFFFFFFFU;
    }

    bool readKeyword(KeywordCode& code) {
        const char* begin = shape_.equals + 1;
        const char* end = shape_.opening;
        while (isBlank(*begin)) ++begin;
        while (end > begin && isBlank(end[-1])) --end;
        if (begin == end) return true;  // a complex instance: "#1=(A()B());"
        const std::string_view keyword(begin, static_cast<std::size_t>(end - begin));
        code = target_.keywords.find(keyword);
        if (code != NoKeyword) return true;
        if (!isSpelledRight(keyword)) return false;
        code = target_.keywords.intern(keyword);
        return code != NoKeyword;  // All codes are used up: a file of 65,535 classes has time to be read by tokens.
    }

    Target& target_;
    const char* instance_;  ///< Where the one being read began, blanks before it included.
    const char* limit_;
    std::uint64_t inString_ = 0;         ///< All ones where the last block ended inside a string.
    std::uint64_t stringEndBefore_ = 0;  ///< 1 where it ended with the end of one.
    Shape shape_;
};

const char* intoIndex(const char* from, const char* limit, Index& index) {
    return Sweeper(from, limit, index).run();
}

const char* intoStretch(const char* from, const char* limit, SweptStretch& stretch) {
    return Sweeper(from, limit, stretch).run();
}

}  // namespace

}  // namespace model::step::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace model::step {

HWY_EXPORT(intoIndex);
HWY_EXPORT(intoStretch);

const char* sweep(const char* from, const char* limit, Index& index) {
    return HWY_DYNAMIC_DISPATCH(intoIndex)(from, limit, index);
}

const char* sweep(const char* from, const char* limit, SweptStretch& stretch) {
    return HWY_DYNAMIC_DISPATCH(intoStretch)(from, limit, stretch);
}

}  // namespace model::step
#endif
