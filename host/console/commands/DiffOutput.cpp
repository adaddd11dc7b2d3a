#include "console/commands/DiffOutput.hpp"

#include "comparing/Expressible.hpp"
#include "comparing/LeftOut.hpp"
#include "console/ModelSession.hpp"
#include "console/output/HostText.hpp"
#include "console/output/OutputFile.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"
#include "text/Guid.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <functional>

namespace console {
namespace {

using comparing::Change;
using comparing::ChangedElement;
using updatefile::counted;

/// Of an element as `list` tells it.
struct Subject {
    std::string guid, globalId, ifcClass, type, name;
};

Subject subjectOf(const model::Model& model, model::Element element) {
    const model::ElementInfo info = model.info(element);
    return {text::guidText(info.guid), info.globalId, info.ifcClass, info.typeName.english(),
            toUtf8(model.name(element))};
}

/// Calls `visit(what, subject, change)` for each line of the list; the change is null for an element that only one of
/// the models has.
using Visit = std::function<void(const char*, const Subject&, const Change*)>;

void forEachLine(const Difference& difference, const Visit& visit) {
    for (const model::Element element : difference.found.removed)
        visit("removed", subjectOf(difference.a.model, element), nullptr);
    for (const model::Element element : difference.found.added)
        visit("added", subjectOf(difference.b.model, element), nullptr);
    for (const ChangedElement& changed : difference.found.changed) {
        const Subject subject = subjectOf(difference.a.model, changed.a);
        for (const Change& change : changed.changes) visit("changed", subject, &change);
    }
}

/// The whole name of the set, which an item tells of the sets of the standard alone.
std::string itemWithSet(const Change& change) {
    const bool told = change.set.empty() || change.item.ends_with(']');
    return told ? change.item : fmt::format("{} ({})", change.item, change.set);
}

std::size_t changeCount(const comparing::Comparison& found) {
    std::size_t count = 0;
    for (const ChangedElement& changed : found.changed) count += changed.changes.size();
    return count;
}

std::string sentence(const comparing::Comparison& found) {
    std::string text = fmt::format("{} added, {} removed, {} changed", counted(found.added.size(), "element"),
                                   found.removed.size(), found.changed.size());
    if (!found.changed.empty()) text += fmt::format(" ({})", counted(changeCount(found), "change"));
    text += fmt::format(", {} the same.", found.same);
    if (found.notWritable > 0) text += fmt::format(" An update file cannot make {} of the changes.", found.notWritable);
    return text + "\n";
}

JsonValue asJson(const Subject& subject) {
    return {{"guid", subject.guid},
            {"globalId", subject.globalId},
            {"class", subject.ifcClass},
            {"type", subject.type},
            {"name", subject.name}};
}

JsonValue orNull(const std::optional<std::string>& text) {
    return text ? JsonValue(*text) : JsonValue();
}

JsonValue asJson(const Change& change) {
    return {{"kind", comparing::nameOf(change.kind)},
            {"item", change.item},
            {"set", change.kind == comparing::ChangeKind::Property ? JsonValue(change.set) : JsonValue()},
            {"old", orNull(change.old)},
            {"new", orNull(change.now)},
            {"writable", change.writable()}};
}

JsonValue asJson(const Difference& difference, const ChangedElement& changed) {
    JsonValue json = asJson(subjectOf(difference.a.model, changed.a));
    json["changes"] = JsonValue::array();
    for (const Change& change : changed.changes) json["changes"].push_back(asJson(change));
    return json;
}

}  // namespace

void printAsTable(const Difference& difference) {
    Table table({"What", "Element", "Type", "GUID", "Item", "Old", "New"});
    constexpr std::size_t What = 0, Name = 1, Type = 2, GuidPlace = 3;
    table.yield(GuidPlace, Yield::First);
    // Two elements may have one name: the GUID tells whether a row goes on with the element above.
    table.blankRepeats({GuidPlace, Name, Type, What});
    bool any = false;
    forEachLine(difference, [&](const char* what, const Subject& subject, const Change* change) {
        any = true;
        Table::Row row{{what}, {subject.name}, {subject.type}, {subject.guid}};
        if (change != nullptr) {
            const Style style = change->writable() ? Style::Plain : Style::Dim;
            row.push_back({itemWithSet(*change), style});
            row.push_back({change->old.value_or(""), style});
            row.push_back({change->now.value_or(""), style});
        }
        table.add(std::move(row));
    });
    if (any) {
        table.layOut(Terminal::standardOutput(), print);
        print("\n");
    }
    print(sentence(difference.found));
}

void printAsTsv(const Difference& difference) {
    const Terminal terminal = Terminal::standardOutput();
    print(tsvLine(std::vector<std::string>{"What", "GUID", "GlobalId", "Class", "Type", "Name", "Kind", "Item", "Set",
                                           "Old", "New", "Writable"},
                  terminal));
    forEachLine(difference, [&](const char* what, const Subject& subject, const Change* change) {
        std::vector<std::string> cells{what,         subject.guid, subject.globalId, subject.ifcClass,
                                       subject.type, subject.name};
        if (change != nullptr) {
            cells.insert(cells.end(),
                         {comparing::nameOf(change->kind), change->item, change->set, change->old.value_or(""),
                          change->now.value_or(""), change->writable() ? "true" : "false"});
        }
        cells.resize(12);
        print(tsvLine(cells, terminal));
    });
}

void printAsJson(const Difference& difference) {
    const comparing::Comparison& found = difference.found;
    JsonDocument document;
    document.member("a", asJson(factsOf(difference.a.model, difference.a.path)));
    document.member("b", asJson(factsOf(difference.b.model, difference.b.path)));
    document.member("added", found.added.size(),
                    [&](std::size_t i) { return asJson(subjectOf(difference.b.model, found.added[i])); });
    document.member("removed", found.removed.size(),
                    [&](std::size_t i) { return asJson(subjectOf(difference.a.model, found.removed[i])); });
    document.member("changed", found.changed.size(),
                    [&](std::size_t i) { return asJson(difference, found.changed[i]); });
    document.member("summary", summaryOf(difference));
    document.finish();
}

JsonValue summaryOf(const Difference& difference) {
    const comparing::Comparison& found = difference.found;
    return {{"added", found.added.size()},
            {"removed", found.removed.size()},
            {"changed", found.changed.size()},
            {"same", found.same},
            {"notWritable", found.notWritable}};
}

std::string updatesOf(const Difference& difference) {
    std::string text;
    for (const ChangedElement& changed : difference.found.changed) {
        for (const Change& change : changed.changes)
            if (change.writable()) text += comparing::updateLine(difference.a.model, changed, change);
    }
    return text;
}

std::vector<std::string> leftOutOf(const Difference& difference) {
    std::vector<std::string> lines;
    if (const auto count = difference.found.added.size(); count > 0) {
        lines.push_back(fmt::format("{} left out: an update file adds no elements", counted(count, "added element")));
    }
    if (const auto count = difference.found.removed.size(); count > 0) {
        lines.push_back(
            fmt::format("{} left out: an update file removes no elements", counted(count, "removed element")));
    }
    for (const comparing::LeftOut& group : comparing::leftOut(difference.found)) {
        std::vector<std::string> examples;
        for (const model::Element element : group.examples)
            examples.push_back(text::guidText(difference.a.model.info(element).guid));
        std::string line = fmt::format("{} of {} left out: {} ({}", counted(group.count, "change"), group.item,
                                       group.why, fmt::join(examples, ", "));
        if (group.count > examples.size()) line += fmt::format(" and {} more", group.count - examples.size());
        lines.push_back(line + ")");
    }
    return lines;
}

void printWhole(const std::string& text, const std::optional<std::filesystem::path>& output) {
    if (!output) return print(Terminal::standardOutput().present ? visibleLines(text) : text);
    OutputFile file(*output);
    file.write(text);
    file.commit();
}

}  // namespace console
