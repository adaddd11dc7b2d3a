#include "comparing/Comparison.hpp"
#include "comparing/Expressible.hpp"
#include "fuzz/Checks.hpp"
#include "fuzz/ModelData.hpp"

namespace fuzz {

namespace {

using namespace model;

comparing::Comparison compared(Model& a, const Model& b) {
    const std::string before = a.bytes();
    auto comparison = comparing::compare(a, b);
    require(comparison || comparison.error().kind == ErrorKind::Refused, "two models are not compared");
    require(a.bytes() == before && !a.commandOpen(), "comparing changes a model");
    return comparison ? std::move(*comparison) : comparing::Comparison{};
}

/// @return false where none of the changes was made.
bool change(Model& model, Element element) {
    bool any = false;
    const auto ran = model.command("Fuzz", [&] {
        const bool named = bool{model.setAttribute(element, "Name", u"Fuzz")};
        const bool set = bool{model.setPropertyText(element, {u"Fuzz", u"Fuzz", u"1.5", "IfcReal"})};
        any = named || set;
        return 0;
    });
    return ran && any;
}

}  // namespace

void checkComparing(std::string_view bytes) {
    const auto a = Model::fromBytes(std::string(bytes));
    const auto b = Model::fromBytes(std::string(bytes));
    if (!a || !b || (*a)->elementCount() == 0 || !(*a)->remarks().empty()) return;
    const comparing::Comparison alike = compared(**a, **b);
    require(alike.added.empty() && alike.removed.empty() && alike.changed.empty(), "a model differs from itself");
    const Element element = someElement(**b, bytes);
    if (!change(**b, element)) return;
    const std::u16string before = dataOf(**a, element), after = dataOf(**b, element);
    const comparing::Comparison comparison = compared(**a, **b);
    require(comparison.added.empty() && comparison.removed.empty(), "a change adds or removes an element");
    require(comparison.changed.size() <= 1, "a change of one element is found at several");
    for (const comparing::ChangedElement& found : comparison.changed) {
        require(found.a == element && found.b == element, "a change is found at another element");
        require(before != after, "a change is found where there is none");
        for (const comparing::Change& one : found.changes)
            if (one.writable()) require(!comparing::updateLine(**a, found, one).empty(), "an update has no line");
    }
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkComparing)
