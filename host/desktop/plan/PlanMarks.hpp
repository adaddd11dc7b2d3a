#pragma once

#include "model/Model.hpp"

#include <array>
#include <unordered_map>

namespace desktop {

/// How an element's row in an open review stands. Of an element with several rows the greatest counts: what needs the
/// user's eye comes before what is settled.
enum class Mark : std::uint8_t { None, Unchanged, Done, Open, Ticked, Error };
inline constexpr std::size_t MarkCount = 6;
/// In the order in which a legend names them.
inline constexpr Mark MarksByUrgency[] = {Mark::Error, Mark::Ticked, Mark::Open, Mark::Done, Mark::Unchanged};

/// The elements marked in the plan.
class PlanMarks {
public:
    void add(model::Element element, Mark mark) {
        Mark& known = marks_[element];
        if (known < mark) known = mark;
        ++rows_[static_cast<std::size_t>(mark)];
    }
    Mark of(model::Element element) const {
        const auto found = marks_.find(element);
        return found == marks_.end() ? Mark::None : found->second;
    }
    bool empty() const { return marks_.empty(); }
    const std::unordered_map<model::Element, Mark>& all() const { return marks_; }
    /// How many rows stand so.
    std::size_t rowCount(Mark mark) const { return rows_[static_cast<std::size_t>(mark)]; }

private:
    std::unordered_map<model::Element, Mark> marks_;
    std::array<std::size_t, MarkCount> rows_{};
};

}  // namespace desktop
