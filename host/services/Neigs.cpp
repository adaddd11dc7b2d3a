#include "services/Neigs.hpp"

#include "model/base/ElementTypeIds.hpp"

namespace host {

namespace {

struct Row {
    API_ElemTypeID type;
    NeigPart part;
};

constexpr Row Rows[] = {
#define NEIG(type, id, index) {model::ElementTypeIds::type, {id, index}},
#include "services/Neigs.def"
#undef NEIG
};

}  // namespace

std::optional<NeigPart> neigOfType(API_ElemTypeID type) {
    for (const Row& row : Rows) {
        if (row.type == type) return row.part;
    }
    return std::nullopt;
}

API_ElemTypeID typeOfNeig(API_NeigID neig) {
    for (const Row& row : Rows) {
        if (row.part.id == neig) return row.type;
    }
    return 0;
}

}  // namespace host
