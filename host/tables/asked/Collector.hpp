#pragma once
// Takes the cells that ask for something, one by one, and sorts them: update, unchanged, or left out and why.

#include "tables/Asking.hpp"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tables {

/// One cell that may ask for something, and for what.
struct Request {
    std::uint32_t line = 0;
    const std::string& guid;
    std::uint32_t element = 0;  ///< As numbered by the collector.
    const std::string& item;
    std::uint32_t itemNumber = 0;
    const std::string& column;
    std::optional<std::string> old;
    std::string_view text;
    CellKind kind = CellKind::Text;
    bool decimalComma = false;
    bool sayWhenEmpty = false;  ///< A line of its own was written for it.
};

class Collector {
public:
    explicit Collector(const AskOptions& options) : options_(options) {}

    std::uint32_t elementNumber(const std::string& guid);
    std::uint32_t itemNumber(const std::string& item);

    void take(Request request);
    void leaveOut(std::uint32_t line, std::string column, std::string why);
    /// To be called for each cell that was read, for the count of those with TABs and line ends.
    void noteBreaks(const Cell* cell);

    /// All that came of it; the layout and the notes of the file are the caller's.
    Asked finish();

private:
    struct Pending {
        AskedUpdate update;
        std::uint32_t contestedBy = 0;  ///< The line that asks for another value; 0 for none.
    };

    bool isUnchanged(const Request& request) const;
    void takeTwice(Pending& earlier, const AskedUpdate& later);

    const AskOptions& options_;
    Asked asked_;
    std::vector<Pending> pending_;
    // Sorted, not hashed: a file can be made so that all its texts have one hash.
    std::map<std::string, std::uint32_t> elements_;
    std::map<std::string, std::uint32_t> items_;
    std::map<std::uint64_t, std::size_t> places_;  ///< In `pending_`, by element and item.
    std::uint64_t cellsWithBreaks_ = 0;
};

/// Blanks are not seen, so they ask for nothing either.
bool isBlank(std::string_view text);

}  // namespace tables
