#include "tables/asked/Collector.hpp"

#include "tables/Text.hpp"
#include "tables/UpdateFiles.hpp"
#include "tables/asked/DecimalComma.hpp"
#include "text/Message.hpp"

#include <algorithm>
#include <array>

namespace tables {
namespace {

/// In delimited text an error is text like any other. These are its forms in every language but the user's own.
bool looksLikeFault(std::string_view text) {
    constexpr std::array<std::string_view, 7> Faults{"#N/A",   "#REF!", "#VALUE!", "#DIV/0!",
                                                     "#NAME?", "#NUM!", "#NULL!"};
    return std::find(Faults.begin(), Faults.end(), text) != Faults.end();
}

/// How reals are written: "9.500000".
bool hasSixDecimals(std::string_view text) {
    constexpr std::size_t Decimals = 6;
    const std::size_t point = text.find('.');
    return point != std::string_view::npos && text.size() - point - 1 == Decimals && parseDecimal(text, false);
}

bool saysTheSame(const Request& request, std::string_view value, std::string_view written) {
    if (value == written) return true;
    const auto number = parseDecimal(value, request.decimalComma);
    // Other texts that are equal as numbers may differ in what they say: 007 and 7.
    return number && (request.decimalComma || hasSixDecimals(written)) && number == parseDecimal(written, false);
}

std::string_view valueOf(const Request& request) {
    return isBlank(request.text) ? std::string_view() : request.text;
}

bool showsFault(const Request& request) {
    return request.kind == CellKind::Fault || (request.kind == CellKind::Text && looksLikeFault(request.text));
}

std::string contestedText(std::uint32_t line, std::uint32_t otherLine) {
    if (line == otherLine) return text::message("two columns of this name ask for different values; keep one of them");
    return text::message("line {} asks for another value of the same item; keep one of the two", otherLine);
}

}  // namespace

bool isBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

std::uint32_t Collector::elementNumber(const std::string& guid) {
    return elements_.try_emplace(guid, static_cast<std::uint32_t>(elements_.size())).first->second;
}

std::uint32_t Collector::itemNumber(const std::string& item) {
    return items_.try_emplace(item, static_cast<std::uint32_t>(items_.size())).first->second;
}

bool Collector::isUnchanged(const Request& request) const {
    const std::string_view value = valueOf(request);
    if (request.old && saysTheSame(request, value, *request.old)) return true;
    if (!options_.current) return false;
    const auto current = options_.current(request.guid, request.item);
    return current ? saysTheSame(request, value, withoutBreaks(*current)) : value.empty();
}

void Collector::take(Request request) {
    if (request.kind == CellKind::Uncomputed) {
        leaveOut(request.line, request.column,
                 text::message("its formula has no value yet; open the file in a spreadsheet program and save it"));
        return;
    }
    const std::string_view value = valueOf(request);
    if (value.empty() && !options_.clearEmpty) {
        if (request.sayWhenEmpty) {
            leaveOut(request.line, request.column,
                     text::message("the new value is empty; with --clear-empty that asks for the empty text"));
        }
        return;
    }
    // Before errors are looked for: where the model holds "#N/A", a table that says so asks for nothing.
    if (isUnchanged(request)) {
        ++asked_.unchanged;
        return;
    }
    if (showsFault(request)) {
        leaveOut(request.line, request.column,
                 text::message("it shows the error {}; fix the formula, or empty the cell", inQuotes(request.text)));
        return;
    }
    AskedUpdate update{request.guid, request.item,   std::move(request.old), std::string(value),
                       request.line, request.column, request.decimalComma};
    if (auto obstacle = obstacleOf(update)) {
        leaveOut(update.line, update.column, std::move(*obstacle));
        return;
    }
    const std::uint64_t subject = std::uint64_t{request.element} << 32U | request.itemNumber;
    const auto [place, isNew] = places_.try_emplace(subject, pending_.size());
    if (isNew) {
        pending_.push_back({std::move(update)});
    } else {
        takeTwice(pending_[place->second], update);
    }
}

void Collector::takeTwice(Pending& earlier, const AskedUpdate& later) {
    if (earlier.update.value == later.value) {
        const bool sameLine = earlier.update.line == later.line;
        leaveOut(later.line, later.column,
                 sameLine ? text::message("another column asks for the same")
                          : text::message("line {} asks for the same", earlier.update.line));
        return;
    }
    // Neither is taken: which of them was meant nobody can tell.
    earlier.contestedBy = later.line;
    leaveOut(later.line, later.column, contestedText(later.line, earlier.update.line));
}

void Collector::leaveOut(std::uint32_t line, std::string column, std::string why) {
    asked_.leftOut.push_back({line, std::move(column), std::move(why)});
}

void Collector::noteBreaks(const Cell* cell) {
    if (cell != nullptr && cell->text.hadBreaks) ++cellsWithBreaks_;
}

Asked Collector::finish() {
    for (Pending& pending : pending_) {
        AskedUpdate& update = pending.update;
        if (pending.contestedBy == 0) {
            asked_.updates.push_back(std::move(update));
        } else {
            leaveOut(update.line, update.column, contestedText(update.line, pending.contestedBy));
        }
    }
    std::stable_sort(asked_.leftOut.begin(), asked_.leftOut.end(),
                     [](const LeftOut& a, const LeftOut& b) { return a.line < b.line; });
    asked_.elements = elements_.size();
    asked_.items = items_.size();
    if (cellsWithBreaks_ > 0) {
        asked_.notes.push_back(text::counted("{} cell with TABs or line ends: each became a blank",
                                             "{} cells with TABs or line ends: each became a blank", cellsWithBreaks_));
    }
    return std::move(asked_);
}

}  // namespace tables
