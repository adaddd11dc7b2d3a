#include "console/import/ReviewProgress.hpp"

#include "console/output/Terminal.hpp"

namespace console {

ReviewProgress::ReviewProgress(const std::string& updates, std::uint64_t lineCount)
    : line_("Reviewing " + updates), lines_(lineCount), watching_(Terminal::standardError().present) {
    if (!watching_) return;
    previous_ = frontend::setDebugSink({});
    frontend::setDebugSink([this](const char* text) {
        if (previous_) previous_(text);
        show();
    });
}

ReviewProgress::~ReviewProgress() {
    if (watching_) frontend::setDebugSink(previous_);
}

void ReviewProgress::show() {
    if (frontend::openDialogs().empty()) return;
    for (const frontend::Item& item : frontend::openDialogs().back()->items())
        if (item.list) line_.show(static_cast<std::uint64_t>(item.list->rowCount()) + item.list->rowsLost(), lines_);
}

}  // namespace console
