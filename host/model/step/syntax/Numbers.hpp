#pragma once
// Numbers of the clear-text encoding (ISO 10303-21), read and written without regard to the locale.

#include "model/step/syntax/Value.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace model::step {

/// Nothing where the digits do not fit 64 bits or the value is no Integer.
std::optional<std::int64_t> integerValue(Value value);

/// Accepts what ISO 10303-21 does not but files hold: reals without a point, an integer where a real is due. Always "."
/// whatever the locale. Nothing for a value that is no number or not finite.
std::optional<double> realValue(Value value);

/// The shortest decimal that reads back to the same double, with the point that ISO 10303-21 asks of every REAL:
/// "12.5", "1.", "1.E-05". @param value  finite.
std::string encodeReal(double value);

/// The same number for a person: "12.5", "1", "1e-05". @param value  finite.
std::string displayReal(double value);

}  // namespace model::step
