#include "report/Report.hpp"

#include "text/Guid.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace report {

const char* nameOf(Tone tone) {
    switch (tone) {
        case Tone::Good:
            return "good";
        case Tone::Note:
            return "note";
        case Tone::Bad:
            return "bad";
        case Tone::Plain:
            break;
    }
    return "plain";
}

void arrange(std::vector<Subject>& subjects) {
    // In the order in which storeys and types first come: that of the model.
    std::map<std::string, std::size_t> storeys;
    std::map<std::pair<std::string, std::string_view>, std::size_t> types;
    for (const Subject& subject : subjects) {
        storeys.try_emplace(subject.storey, storeys.size());
        types.try_emplace({subject.storey, subject.type.english()}, types.size());
    }
    const auto rank = [&](const Subject& subject) {
        // What stands nowhere comes last.
        return std::tuple(subject.storey.empty(), storeys.at(subject.storey),
                          types.at({subject.storey, subject.type.english()}));
    };
    std::vector<std::pair<std::tuple<bool, std::size_t, std::size_t>, std::size_t>> order;
    for (std::size_t i = 0; i < subjects.size(); ++i) order.emplace_back(rank(subjects[i]), i);
    std::sort(order.begin(), order.end());
    std::vector<Subject> arranged;
    arranged.reserve(subjects.size());
    for (const auto& [place, index] : order) arranged.push_back(std::move(subjects[index]));
    subjects = std::move(arranged);
}

Subject subjectOf(const model::Model& model, model::Element element) {
    const model::ElementInfo info = model.info(element);
    Subject subject;
    subject.guid = text::guidText(info.guid);
    subject.globalId = info.globalId;
    subject.ifcClass = info.ifcClass;
    subject.type = info.typeName;
    subject.name = text::toUtf8(model.name(element));
    // A storey's own changes stand with those of what is in it.
    subject.storey = info.ifcClass == "IfcBuildingStorey" ? subject.name : model.storey(element);
    return subject;
}

}  // namespace report
