#pragma once
// Stretches of a file swept on other threads, ahead of the reader.

#include "model/base/HelperThreads.hpp"
#include "model/step/index/Keywords.hpp"
#include "model/step/index/Slot.hpp"
#include "model/step/syntax/Value.hpp"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string_view>
#include <vector>

namespace model::step {

/// How a file is shared out. Tests have it cut smaller.
struct Sharing {
    std::size_t stretch = std::size_t{1} << 20U;     ///< Bytes; what is found in one stays in the processor's cache.
    std::size_t worthwhile = std::size_t{8} << 20U;  ///< Fewer bytes are read before a thread has begun.
    unsigned threads = spareCores();                 ///< Beside the reader's own; none of them, and nothing is shared.
};

/// What was found from one place on. That it is an instance's beginning is guessed by layout, so it counts only where
/// the reader comes to the same place by itself: between two instances the sweep remembers nothing of what was before.
struct SweptStretch {
    struct Found {
        InstanceId id;
        const char* begin;
        std::uint32_t length;
        KeywordCode keyword;  ///< In `keywords`.
    };

    const char* begin = nullptr;  ///< Right behind a semicolon; null where nothing looks like a beginning.
    const char* end = nullptr;    ///< Of the last instance.
    Keywords keywords;            ///< And perhaps others.
    std::vector<Found> found;

    void add(InstanceId id, KeywordCode keyword, const char* text, const char* textEnd) {
        found.push_back({id, text, static_cast<std::uint32_t>(textEnd - text), keyword});
    }
};

/// Belongs to the reader's thread; the threads that it starts see the bytes and their own stretches only. They end
/// with it. What they lack memory for is not found, and left to the reader.
class SweepAhead {
public:
    /// @param from  between two instances of a DATA section.
    /// @param end   of the bytes, which are followed by SlackBytes zeros.
    SweepAhead(const char* from, const char* end, const Sharing& sharing);
    SweepAhead(const SweepAhead&) = delete;
    SweepAhead& operator=(const SweepAhead&) = delete;
    ~SweepAhead();

    /// The first stretch with something in it that begins at `at` or behind. Asked for in file order; valid until it is
    /// asked for again. Null where there is none.
    const SweptStretch* next(const char* at);

private:
    struct Place {
        bool ready = false;
        SweptStretch stretch;
    };

    Place& place(std::size_t number) { return places_[number % places_.size()]; }
    bool takeOne(std::unique_lock<std::mutex>& held);
    void sweepOne(std::size_t number, SweptStretch& stretch) const;
    void work();
    const SweptStretch& wait(std::size_t number);

    const char* from_;
    const char* end_;
    Sharing sharing_;
    std::size_t count_ = 0;  ///< Of stretches.

    std::mutex mutex_;
    std::condition_variable changed_;
    // --- Under the mutex ---
    std::vector<Place> places_;  ///< A ring of those from first_ on; who has taken one has its stretch to himself.
    std::size_t first_ = 0;      ///< The one that the reader is at.
    std::size_t nextFree_ = 0;   ///< The first that nobody has taken.
    bool ended_ = false;

    HelperThreads threads_;  // The last: they end before what they use.
};

}  // namespace model::step
