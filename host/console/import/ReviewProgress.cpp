#include "console/import/ReviewProgress.hpp"

#include "console/output/Terminal.hpp"

namespace console {

ReviewProgress::ReviewProgress(const std::string& updates, std::uint64_t lineCount)
    : line("Reviewing " + updates), lines(lineCount), watching(Terminal::standardError().present) {
    if (!watching) return;
    previous = frontend::setDebugSink({});
    frontend::setDebugSink([this](const char* text) {
        if (previous) previous(text);
        show();
    });
}

ReviewProgress::~ReviewProgress() {
    if (watching) frontend::setDebugSink(previous);
}

void ReviewProgress::show() {
    if (frontend::openDialogs().empty()) return;
    for (const frontend::Item& item : frontend::openDialogs().back()->items())
        if (item.list) line.show(static_cast<std::uint64_t>(item.list->rowCount()) + item.list->rowsLost(), lines);
}

}  // namespace console
