#include "model/step/reading/SweepAhead.hpp"

#include "model/step/reading/Sweep.hpp"
#include "model/step/syntax/Characters.hpp"

#include <algorithm>
#include <new>

namespace model::step {

namespace {

/// Behind the first semicolon that is followed by a line end and "#1", in the manner of nearly all files; `end` where
/// there is none.
const char* likelyBeginning(const char* at, const char* end) {
    for (; (at = std::find(at, end, ';')) != end;) {
        const char* behind = ++at;
        bool lineEnd = false;
        for (; behind != end && isBlank(*behind); ++behind) lineEnd = lineEnd || isLineEnd(*behind);
        if (lineEnd && end - behind > 1 && behind[0] == '#' && isDigit(behind[1])) return at;
    }
    return end;
}

}  // namespace

SweepAhead::SweepAhead(const char* from, const char* end, const Sharing& sharing)
    : from_(from), end_(end), sharing_(sharing) {
    const auto size = static_cast<std::size_t>(end - from);
    if (sharing.threads == 0 || size < sharing.worthwhile) return;
    count_ = (size + sharing.stretch - 1) / sharing.stretch;
    places_.resize(std::size_t{2} * (sharing.threads + 1));
    threads_.start(sharing.threads, [this] { work(); });
}

SweepAhead::~SweepAhead() {
    {
        const std::lock_guard held(mutex_);
        ended_ = true;
    }
    changed_.notify_all();
}

const SweptStretch* SweepAhead::next(const char* at) {
    while (first_ < count_) {
        const SweptStretch& stretch = wait(first_);
        // One that begins before `at` began inside something that the reader has passed as a whole.
        if (stretch.begin != nullptr && stretch.begin >= at) return &stretch;
        {
            const std::lock_guard held(mutex_);
            ++first_;
        }
        changed_.notify_all();
    }
    return nullptr;
}

/// The reader does not wait idly: it takes stretches as the others do until the one that it is at is ready.
const SweptStretch& SweepAhead::wait(std::size_t number) {
    std::unique_lock held(mutex_);
    while (number >= nextFree_ || !place(number).ready) {
        if (!takeOne(held)) changed_.wait(held);
    }
    return place(number).stretch;
}

void SweepAhead::work() {
    std::unique_lock held(mutex_);
    while (!ended_ && nextFree_ < count_) {
        if (!takeOne(held)) changed_.wait(held);
    }
}

/// @return false where all that there is room for is taken.
bool SweepAhead::takeOne(std::unique_lock<std::mutex>& held) {
    // No further ahead than there are places, or a long file would be in memory a second time as what was found in it.
    if (nextFree_ >= count_ || nextFree_ - first_ >= places_.size()) return false;
    const std::size_t number = nextFree_++;
    Place& mine = place(number);
    mine.ready = false;
    held.unlock();
    sweepOne(number, mine.stretch);
    held.lock();
    mine.ready = true;
    changed_.notify_all();
    return true;
}

void SweepAhead::sweepOne(std::size_t number, SweptStretch& stretch) const try {
    // Memory and keywords of the stretch before are used again: most of them come again.
    constexpr std::size_t ManyKeywords = 2048;
    stretch.begin = nullptr;
    stretch.found.clear();
    if (stretch.keywords.size() > ManyKeywords) stretch.keywords = Keywords();
    const char* begin = from_ + number * sharing_.stretch;
    const char* end = begin + std::min(sharing_.stretch, static_cast<std::size_t>(end_ - begin));
    const char* likely = likelyBeginning(begin, end);
    stretch.end = sweep(likely, end, stretch);
    if (stretch.end != likely) stretch.begin = likely;
} catch (const std::bad_alloc&) {
    // Only the head start is lost: the reader comes to this stretch and sweeps it by itself.
    stretch.begin = nullptr;
}

}  // namespace model::step
