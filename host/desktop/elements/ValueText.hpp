#pragma once

#include "model/Model.hpp"

#include <QString>

namespace desktop {

/// A property's value as a person reads it.
QString valueText(const model::PropertyView& property);
QString valueText(const model::Property& property);

/// A classification reference in a line: its code and its name.
QString valueText(const model::ClassificationReference& reference);

}  // namespace desktop
