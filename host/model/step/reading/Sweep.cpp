#include "model/step/reading/Sweep.hpp"

#include "model/step/reading/Block.hpp"
#include "model/step/syntax/Characters.hpp"

#include <bit>

namespace model::step {

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

class Sweeper {
public:
    Sweeper(const char* from, Index& target) : index_(target), instance_(from) {}

    const char* run(const char* limit) {
        const char* at = instance_;
        while (at < limit && at - instance_ < LongestInstance && take(at)) at += Block::Size;
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
        index_.add(id, code, begin, semicolon + 1);
        instance_ = semicolon + 1;
        shape_ = {};
        return true;
    }

    /// 0 where it is not of the usual form. Up to 18 digits fit 64 bits without a look at each; longer ids are legal
    /// and left to the reader of tokens.
    InstanceId readId(const char* at) const {
        if (*at != '#') return 0;
        const char* digits = ++at;
        InstanceId id = 0;
        for (; isDigit(*at); ++at) id = id * 10 + static_cast<InstanceId>(*at - '0');
        const bool fits = at - digits <= 18;
        while (isBlank(*at)) ++at;
        return fits && at == shape_.equals ? id : 0;
    }

    bool readKeyword(KeywordCode& code) {
        const char* begin = shape_.equals + 1;
        const char* end = shape_.opening;
        while (isBlank(*begin)) ++begin;
        while (end > begin && isBlank(end[-1])) --end;
        if (begin == end) return true;  // a complex instance: "#1=(A()B());"
        const std::string_view keyword(begin, static_cast<std::size_t>(end - begin));
        code = index_.keywords.find(keyword);
        if (code != NoKeyword) return true;
        if (!isSpelledRight(keyword)) return false;
        code = index_.keywords.intern(keyword);
        return true;
    }

    Index& index_;
    const char* instance_;               ///< Where the one being read began, blanks before it included.
    std::uint64_t inString_ = 0;         ///< All ones where the last block ended inside a string.
    std::uint64_t stringEndBefore_ = 0;  ///< 1 where it ended with the end of one.
    Shape shape_;
};

}  // namespace

const char* sweep(const char* from, const char* limit, Index& index) {
    return Sweeper(from, index).run(limit);
}

}  // namespace model::step
