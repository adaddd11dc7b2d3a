#pragma once
// All that a model says of its elements, to be compared as one.

#include "model/Model.hpp"

#include <string>
#include <vector>

namespace fuzz {

/// Attributes, properties and classifications with all that their records tell. Throws where they cannot be read.
std::u16string dataOf(const model::Model& model, model::Element element);
/// By element.
std::vector<std::u16string> dataOf(const model::Model& model);

/// Some element of the model, another one for other bytes. @param model  with elements.
model::Element someElement(const model::Model& model, std::string_view bytes);

/// What is promised of a change that was made of one model inside a command: the other elements are as they were,
/// reopened it reads the same, and undo and redo lead back and forth byte for byte.
/// @param before  The model's bytes and data before.
/// @param changed  The one element that may have changed; nothing where it may be any.
void requirePromises(model::Model& model, const std::string& bytesBefore, const std::vector<std::u16string>& before,
                     std::optional<model::Element> changed);

}  // namespace fuzz
