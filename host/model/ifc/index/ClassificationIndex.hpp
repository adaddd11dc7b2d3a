#pragma once

#include "model/ifc/schema/Classes.hpp"

#include <map>
#include <string>
#include <vector>

namespace model::ifc {

/// Source, edition and name of an IfcClassification; nothing where it is none or not well formed.
bool readClassification(const step::StepFile& file, Classes& classes, step::Slot classification,
                        ClassificationReference& out);

/// The file's IfcClassifications by what they say, so that a new reference can use one that is there.
class ClassificationIndex {
public:
    ClassificationIndex(const step::StepFile& file, Classes& classes);

    /// The first with the source, edition and name of `wanted`. NoSlot where there is none.
    step::Slot find(const ClassificationReference& wanted);

private:
    static std::u16string keyOf(const ClassificationReference& data);

    const step::StepFile& file_;
    Classes& classes_;
    step::Slot seen_ = 0;  // slots below have been looked at; what is added later lies behind
    std::map<std::u16string, std::vector<step::Slot>> slots_;  // no hash: see InverseReferences
};

}  // namespace model::ifc
