#include "console/export/Exporter.hpp"

#include "console/Failure.hpp"
#include "console/output/HostText.hpp"
#include "text/Guid.hpp"
#include "updatefile/Designation.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace console {

using updatefile::ElementData;
using updatefile::LineSubject;
using updatefile::Obstacle;

namespace {

constexpr std::size_t ExamplesKept = 3;

ElementData read(const model::Model& model, model::Element element) {
    return {valueOrThrow(model.attributes(element)), valueOrThrow(model.properties(element)),
            valueOrThrow(model.classifications(element))};
}

}  // namespace

void LeftOut::add(Obstacle obstacle, const std::string& item, const std::string& guid) {
    Group& group = byReason_.try_emplace({obstacle, item}, Group{obstacle, item, 0, {}}).first->second;
    ++group.count;
    if (group.examples.size() < ExamplesKept) group.examples.push_back(guid);
}

std::vector<LeftOut::Group> LeftOut::groups() const {
    std::vector<Group> result;
    for (const auto& entry : byReason_) result.push_back(entry.second);
    return result;
}

std::string LeftOut::text(const Group& group) {
    std::string text = fmt::format("{} of {} left out: {} ({}", updatefile::counted(group.count, "value"), group.item,
                                   updatefile::explain(group.obstacle), fmt::join(group.examples, ", "));
    if (group.count > group.examples.size()) text += fmt::format(" and {} more", group.count - group.examples.size());
    return text + ")";
}

Exporter::Exporter(const model::Model& model, std::vector<std::string> items, Missing missing, Sink sink)
    : model_(model), missing_(missing), sink_(std::move(sink)) {
    for (std::string& text : items) {
        std::u16string name = updatefile::parseDesignation(toUniString(text).View()).name;
        items_.push_back({std::move(text), std::move(name), false});
    }
}

std::vector<std::string> Exporter::itemsOfNobody() const {
    std::vector<std::string> items;
    for (const Item& item : items_)
        if (!item.met) items.push_back(item.text);
    return items;
}

void Exporter::write(model::Element element) {
    const model::ElementInfo info = model_.info(element);
    const LineSubject subject{text::guidText(info.guid), info.guid == model::Guid{}, !model_.name(element).empty()};
    const ElementData data = read(model_, element);
    for (std::size_t place = 0; place < items_.size(); ++place) writeItem(subject, data, place);
}

void Exporter::writeItem(const LineSubject& subject, const ElementData& data, std::size_t place) {
    Item& item = items_[place];
    const updatefile::CurrentText current = updatefile::currentText(data, item.name);
    const updatefile::ExportLine line = updatefile::exportLine(subject, item.text, current);
    item.met = item.met || line.obstacle != Obstacle::NoItem;
    const bool missing = line.obstacle == Obstacle::NoItem && missing_ == Missing::Include;
    if (line.obstacle != Obstacle::None && !missing) return leftOut_.add(line.obstacle, item.text, subject.guid);
    if (current.ambiguous) ++ambiguous_[item.text];
    ++lineCount_;
    sink_({subject.guid, item.text, line.value, place, missing});
}

}  // namespace console
