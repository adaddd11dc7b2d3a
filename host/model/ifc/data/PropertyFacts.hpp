#pragma once
// One property of an element by name, for choosing elements: of its property sets, quantities and predefined sets.

#include "model/ifc/index/Workspace.hpp"
#include "model/ifc/values/FactValue.hpp"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace model::ifc {

/// A name, or what a name has to match.
struct NameTest {
    std::u16string name;  ///< Counts where `matches` is empty.
    std::function<bool(std::u16string_view)> matches;

    bool exact() const { return matches == nullptr; }
    bool operator()(std::u16string_view text) const { return exact() ? text == name : matches(text); }
};

/// Reads the same property of many elements. The element's own sets count before those of its type. Valid until the
/// next change of the model. To be asked once for elements that share all sets, see SharedData.
class PropertyFacts {
public:
    PropertyFacts(Workspace& work, NameTest set, NameTest property);

    /// In the set of that name; without a value there, in the type's. Where several sets or properties pass, the first
    /// property that has a value.
    FactValues of(Element element);

private:
    /// A property set, or a relation that overrides properties of one.
    struct Holder {
        step::Slot slot;
        std::u16string setName;
    };
    struct Found {
        bool there = false;
        std::u16string name;
        FactValues values;
    };
    /// The sets of one name.
    struct Sets {
        std::vector<step::Slot> own, type;
    };

    std::vector<Holder> ownHolders(step::Slot element);
    std::vector<Holder> typeHolders(step::Slot element);
    std::vector<Sets> setsByName(step::Slot element);
    Found findIn(const Sets& sets);
    Found firstIn(const std::vector<step::Slot>& holders, const NameTest& property);
    Found find(step::Slot holder, const NameTest& property);
    Found read(step::Slot holder, const NameTest& property);
    Found readPredefined(step::Slot set, const NameTest& property);
    FactValues valueOf(step::Slot property);

    Workspace& work_;
    NameTest set_;
    NameTest property_;
    std::map<std::pair<step::Slot, std::u16string>, Found> known_;  // of holders with a long text, which many may share
};

}  // namespace model::ifc
