#pragma once
// Whether two models say the same of an element can mostly be told without decoding any of it: by what stands in the
// file, followed through its references, whatever the instances' numbers are.

#include "model/ifc/index/Workspace.hpp"
#include "model/ifc/values/KeyedSum.hpp"

#include <string>
#include <unordered_map>
#include <vector>

namespace model::ifc {

/// Fingerprints of one model, made for one pass over it and valid until its next change. Two models' can be compared
/// where both have the same key. Every instance is read once, however many refer to it.
class Fingerprints {
public:
    Fingerprints(Workspace& work, const FingerprintKey& key);

    /// Of an instance with all that it refers to, rooted instances by their GlobalId alone. Its own GlobalId and owner
    /// history do not count, nor does the context of a representation. The zero fingerprint for NoSlot.
    Fingerprint of(step::Slot slot);

    /// Of all that an element's attributes, properties and classifications are read from, those of its type object
    /// included. Where it is the same in two models, so are these; where it is not, they may be the same all the same.
    Fingerprint dataOf(Element element);

private:
    enum class State : std::uint8_t { New, Open, Done };

    std::uint64_t followed(const Class& cls) const;
    bool compute(step::Slot slot);
    void appendReference(step::Slot target, std::string& out);
    void appendSets(step::Slot object, std::string& out);
    void appendClassifications(step::Slot object, std::string& out);
    const Fingerprint& ofAssignment(step::Slot relation);
    const Fingerprint& ofType(step::Slot type);
    void append(const Fingerprint& part, std::string& out);

    Workspace& work_;
    const FingerprintKey key_;
    std::vector<State> states_;
    std::vector<Fingerprint> known_;
    std::vector<step::Slot> stack_, missing_;
    std::unordered_map<step::Slot, Fingerprint> types_;
    std::unordered_map<step::Slot, Fingerprint> assignments_;  // by relation
    std::string text_;
};

}  // namespace model::ifc
