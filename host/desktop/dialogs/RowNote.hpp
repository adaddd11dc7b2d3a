#pragma once

#include <QString>
#include <cstdint>

namespace desktop {

/// How a row of a review stands.
enum class RowState : std::uint8_t {
    None,       ///< It is no update.
    Open,       ///< It can be ticked.
    Ticked,     ///< It will be written.
    Done,       ///< Written as asked.
    Otherwise,  ///< Written, and the model holds something else than was asked.
    Conflict,   ///< The file knows another old value than the model holds; not written so far.
    Error,      ///< Refused.
    Unchanged,  ///< It cannot be applied: nothing to do, or no such element.
};

/// What the host adds to a row of an add-on's list.
struct RowNote {
    RowState state = RowState::None;
    QString text{};  ///< Shown behind the text of the last column. Empty: nothing to add.
};

}  // namespace desktop
