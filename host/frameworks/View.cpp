#include "DialogAccess.hpp"

#include <utility>

namespace frontend {

namespace {

View* viewInCharge = nullptr;
AddOnCaller callerInCharge = nullptr;

}  // namespace

View::~View() = default;

void View::changed(Dialog&, Int16) {}

View* currentView() {
    return viewInCharge;
}

View* setView(View* view) {
    return std::exchange(viewInCharge, view);
}

AddOnCaller setAddOnCaller(AddOnCaller caller) {
    return std::exchange(callerInCharge, caller);
}

bool callAddOn(void (*call)(void* argument), void* argument) {
    if (callerInCharge != nullptr) return callerInCharge(call, argument);
    call(argument);
    return true;
}

}  // namespace frontend
