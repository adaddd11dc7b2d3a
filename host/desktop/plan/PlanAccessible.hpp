#pragma once

#include "desktop/plan/PlanCursor.hpp"

namespace desktop {

/// Lets assistive technology read the plan: a picture whose parts are the elements that it shows, each with its name,
/// type and class, how its row in an open review stands, and the place on the screen. Parts are made when they are
/// asked for.
void describePlansToAssistiveTechnology();

/// Tells assistive technology that the keyboard points at another element.
void announce(PlanView& plan, model::Element element);

}  // namespace desktop
