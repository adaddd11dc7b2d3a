#include "services/Neigs.hpp"

namespace host {

namespace {

struct Row {
    API_ElemTypeID type;
    NeigPart part;
};

constexpr Row rows[] = {
#define NEIG(type, id, index) {type, {id, index}},
#include "services/Neigs.def"
#undef NEIG
};

}  // namespace

std::optional<NeigPart> neigOfType(API_ElemTypeID type) {
    for (const Row& row : rows) {
        if (row.type == type) return row.part;
    }
    return std::nullopt;
}

API_ElemTypeID typeOfNeig(API_NeigID neig) {
    for (const Row& row : rows) {
        if (row.part.id == neig) return row.type;
    }
    return 0;
}

}  // namespace host
