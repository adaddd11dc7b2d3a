#pragma once

namespace frameworks {

/// A new value for a function's static variable, which no destructor ends: an add-on's image that is still loaded when
/// the program ends runs its end hook after the destructors of this library's statics, and that hook may reach any of
/// the registries here.
///
///     static auto& modules = neverDestroyed<std::map<GSResModule, ResourceModule>>();
template <class Value>
Value& neverDestroyed() {
    return *new Value();
}

}  // namespace frameworks
