#pragma once
// How far the add-on has come with the lines of the update file. It reads them all before its dialog shows, and draws
// nothing meanwhile; what it writes to the debug output for each line is the one sign of life.

#include "console/output/Messages.hpp"
#include "frameworks/FrontEnd.hpp"

#include <string>

namespace console {

class ReviewProgress {
public:
    ReviewProgress(const std::string& updates, std::uint64_t lines);
    ~ReviewProgress();
    ReviewProgress(const ReviewProgress&) = delete;
    ReviewProgress& operator=(const ReviewProgress&) = delete;

private:
    void show();

    ProgressLine line_;
    std::uint64_t lines_;
    bool watching_;  ///< Only for a terminal: without a sink the add-on's debug texts are not even put together.
    frontend::DebugSink previous_;
};

}  // namespace console
