#pragma once

#include "model/ifc/schema/Schema.hpp"
#include "model/step/syntax/Instance.hpp"

namespace model::ifc {

/// The text of an instance to be added: a new one, or a copy of another with some attributes changed.
class InstanceBuilder {
public:
    /// Everything unset.
    explicit InstanceBuilder(const Entity& entity);
    /// A copy; comments are not taken along.
    InstanceBuilder(const Entity& entity, const step::Instance& original);

    /// An attribute that the class has not, or that the original was too short for, is left out.
    InstanceBuilder& set(std::string_view attribute, std::string stepText);
    /// Puts another reference in the place of one in an attribute, which may be a list.
    InstanceBuilder& replaceReference(std::string_view attribute, step::InstanceId from, step::InstanceId to);
    /// Adds a reference to a list.
    InstanceBuilder& addReference(std::string_view attribute, step::InstanceId member);
    /// "IFCWALL('...',$)", what StepFile::append asks for.
    std::string body() const;

private:
    /// Null where there is no such attribute.
    std::string* argument(std::string_view attribute);

    const Entity& entity_;
    std::string keyword_;
    std::vector<std::string> arguments_;
};

std::string referenceText(step::InstanceId id);  ///< "#12"

/// The text of an argument with another reference in the place of one, wherever it stands.
std::string withReference(std::string_view argument, step::InstanceId from, step::InstanceId to);

}  // namespace model::ifc
