#pragma once
// Messages on standard error, one line each; on a terminal also the progress of a long operation.

#include "model/base/Progress.hpp"

#include <string>
#include <string_view>

namespace console {

/// Remarks and progress are left out from now on.
void beQuiet();

/// A remark: "modelhost: MESSAGE". Control characters are shown as pictures.
void say(std::string_view message);

/// An error, in the same form: it is said to quiet users, too.
void complain(std::string_view message);

/// Says so without taking any memory.
void sayMemoryIsOut() noexcept;

/// Shows nothing before a second has passed, and nothing at all where standard error is no terminal.
/// "Opening house.ifc  45 %  12 s left"
class ProgressLine {
public:
    explicit ProgressLine(std::string_view operation);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// Cheap enough to be called for every row.
    void show(std::uint64_t done, std::uint64_t total);
    /// For the model's long operations. Refers to this object. Never cancels.
    model::Progress callback();

private:
    std::string operation_;
    double started_;
    double lastShown_ = 0.0;
    bool terminal_;
};

}  // namespace console
