#include "comparing/Comparison.hpp"

#include "comparing/DataChanges.hpp"
#include "comparing/Expressible.hpp"
#include "comparing/OtherChanges.hpp"
#include "model/ifc/index/Fingerprints.hpp"

#include <algorithm>
#include <iterator>

namespace comparing {

namespace {

using model::Element;
using model::Model;
using model::ifc::Fingerprints;

bool contains(const std::vector<bool>& chosen, Element element) {
    return chosen.empty() || chosen[element];
}

/// Compares the elements that both models have.
class Comparer {
public:
    Comparer(const Model& a, const Model& b)
        // One key for both models: sums made with different keys are never equal.
        : key_(model::ifc::randomKey()),
          fingerprintsA_(a.workspace(), key_),
          fingerprintsB_(b.workspace(), key_),
          data_(a, b),
          others_({a.workspace(), fingerprintsA_}, {b.workspace(), fingerprintsB_}) {}

    /// Fills in what is different of it.
    model::Status compare(ChangedElement& element) {
        // Equal sums save reading the values. Different ones need not mean a difference: the values decide.
        if (!(fingerprintsA_.dataOf(element.a) == fingerprintsB_.dataOf(element.b))) {
            if (model::Status compared = data_.addTo(element); !compared) return compared;
        }
        auto others = others_.of(element.a, element.b);
        std::move(others.begin(), others.end(), std::back_inserter(element.changes));
        return {};
    }

private:
    const model::ifc::FingerprintKey key_;
    Fingerprints fingerprintsA_, fingerprintsB_;
    DataChanges data_;
    OtherChanges others_;
};

model::Guid guidOf(const Model& model, Element element) {
    return model.workspace().elements.guid(element);
}

std::uint64_t countChosen(const Model& model, const Chosen& chosen) {
    std::uint64_t count = 0;
    for (Element element = 0; element < model.elementCount(); ++element)
        count += contains(chosen.a, element) || contains(chosen.b, element) ? 1U : 0U;
    return count;
}

model::Status compareAll(const Model& a, const Model& b, const Chosen& chosen, Comparison& comparison) {
    Comparer comparer(a, b);
    for (Element element = 0; element < a.elementCount(); ++element) {
        const auto other = b.find(guidOf(a, element));
        const bool wanted = contains(chosen.a, element);
        if (!other) {
            if (wanted) comparison.removed.push_back(element);
            continue;
        }
        if (!wanted && !contains(chosen.b, *other)) continue;
        ChangedElement pair{element, *other, {}};
        if (model::Status compared = comparer.compare(pair); !compared) return compared;
        if (pair.changes.empty()) {
            ++comparison.same;
        } else {
            comparison.changed.push_back(std::move(pair));
        }
    }
    // By GUID: an element may have another id in the other file, and another place.
    for (Element element = 0; element < b.elementCount(); ++element) {
        if (contains(chosen.b, element) && !a.find(guidOf(b, element))) comparison.added.push_back(element);
    }
    return {};
}

}  // namespace

const char* nameOf(ChangeKind kind) {
    switch (kind) {
        case ChangeKind::Attribute:
            return "attribute";
        case ChangeKind::Property:
            return "property";
        case ChangeKind::Classification:
            return "classification";
        case ChangeKind::Other:
            break;
    }
    return "other";
}

model::Result<Comparison> compare(Model& a, const Model& b, const Chosen& chosen) {
    Comparison comparison;
    if (a.workspace().file.sameBytes(b.workspace().file)) {
        comparison.same = countChosen(a, chosen);
        return comparison;
    }
    if (model::Status compared = compareAll(a, b, chosen, comparison); !compared) return compared.error();
    if (model::Status judged = judgeChanges(a, comparison.changed); !judged) return judged.error();
    for (const ChangedElement& element : comparison.changed) {
        comparison.notWritable += static_cast<std::uint64_t>(std::count_if(
            element.changes.begin(), element.changes.end(), [](const Change& change) { return !change.writable(); }));
    }
    return comparison;
}

}  // namespace comparing
