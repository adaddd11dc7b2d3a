#include "console/export/Exporter.hpp"

#include "console/Failure.hpp"
#include "console/output/GuidText.hpp"
#include "console/output/Text.hpp"

namespace console {
namespace {

/// As the add-on takes it off the second field: what stands before the first bracket.
std::u16string nameOf(const std::string& designation) {
    const GS::UniString text = toUniString(designation);
    const std::u16string_view units = text.View();
    return std::u16string(units.substr(0, units.find(u'[')));
}

ElementData read(const model::Model& model, model::Element element) {
    return {valueOrThrow(model.attributes(element)), valueOrThrow(model.properties(element)),
            valueOrThrow(model.classifications(element))};
}

}  // namespace

Exporter::Exporter(const model::Model& theModel, std::vector<std::string> designations, Sink theSink)
    : model_(theModel), sink_(std::move(theSink)) {
    for (std::string& text : designations) {
        std::u16string name = nameOf(text);
        items_.push_back({std::move(text), std::move(name)});
    }
}

void Exporter::write(model::Element element) {
    const model::ElementInfo info = model_.info(element);
    const LineSubject subject{guidText(info.guid), info.guid == model::Guid{}, !model_.name(element).empty()};
    const ElementData data = read(model_, element);
    for (const Item& item : items_) writeItem(subject, data, item);
}

void Exporter::writeItem(const LineSubject& subject, const ElementData& data, const Item& item) {
    const CurrentText current = currentText(data, item.name);
    const UpdateLine line = updateLine(subject, item.text, current);
    if (line.obstacle != Obstacle::None) return out_.add(line.obstacle, item.text, subject.guid);
    if (current.ambiguous) ++several_[item.text];
    ++lines_;
    sink_({subject.guid, item.text, line.value});
}

}  // namespace console
