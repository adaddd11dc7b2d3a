#include "GSRoot.hpp"

#include "FrontEnd.hpp"
#include "NarrowText.hpp"
#include "NeverDestroyed.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

struct DelayedStarts {
    bool deferring = false;
    std::vector<GSInitImageProc> hooks;
};

// Images may start before main, hence no plain global here: nothing would say which of them comes first.
DelayedStarts& delayedStarts() {
    static auto& starts = frameworks::neverDestroyed<DelayedStarts>();
    return starts;
}

frontend::BeepSink& beepSink() {
    static auto& sink = frameworks::neverDestroyed<frontend::BeepSink>();
    return sink;
}

/// Where a text that must end at `limit` is to be cut. Only a sequence that is whole in the source is kept together: a
/// stray lead byte is a character of its own.
std::size_t cutBetweenSequences(const char* text, std::size_t limit) {
    constexpr std::size_t LongestSequence = 4;
    for (std::size_t back = 1; back < LongestSequence && back <= limit; ++back) {
        const char* const begin = text + (limit - back);
        if (frameworks::sequenceLength({begin, strnlen(begin, LongestSequence)}) > back) return limit - back;
    }
    return limit;
}

}  // namespace

bool GSRoot_DelayInitImage(GSInitImageProc initImage) {
    DelayedStarts& starts = delayedStarts();
    if (!starts.deferring) return false;
    if (std::find(starts.hooks.begin(), starts.hooks.end(), initImage) == starts.hooks.end())
        starts.hooks.push_back(initImage);
    return true;
}

void GSSysBeep() {
    if (beepSink()) {
        beepSink()();
        return;
    }
    if (isatty(STDERR_FILENO) == 0) return;
    // A terminal that takes no bell stays silent.
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, "\a", 1);
}

void BNFillMemory(void* target, USize count, unsigned char value) {
    if (count > 0) std::memset(target, value, count);
}

void CHTruncate(const char* source, char* target, USize size) {
    if (size == 0) return;
    std::size_t length = source == nullptr ? 0 : strnlen(source, size);
    if (length == size) length = cutBetweenSequences(source, size - 1);
    if (length > 0) std::memmove(target, source, length);
    target[length] = '\0';
}

namespace frontend {

BeepSink setBeepSink(BeepSink sink) {
    return std::exchange(beepSink(), std::move(sink));
}

void deferImageStarts(bool defer) {
    delayedStarts().deferring = defer;
}

void runDelayedStarts() {
    deferImageStarts(false);
    // Each hook asks again whether to wait, so the state ends before the first of them runs.
    for (const GSInitImageProc start : std::exchange(delayedStarts().hooks, {})) start();
}

}  // namespace frontend
