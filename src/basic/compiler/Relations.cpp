#include "Relations.h"

namespace dorvik::basic {

namespace {

constexpr Relation AsRelation(BinaryOperator which) {
    return static_cast<Relation>(static_cast<int>(which) - static_cast<int>(BinaryOperator::Equal));
}

static_assert(AsRelation(BinaryOperator::Equal) == Relation::Equal);
static_assert(AsRelation(BinaryOperator::NotEqual) == Relation::NotEqual);
static_assert(AsRelation(BinaryOperator::Less) == Relation::Less);
static_assert(AsRelation(BinaryOperator::Greater) == Relation::Greater);
static_assert(AsRelation(BinaryOperator::LessOrEqual) == Relation::LessOrEqual);
static_assert(AsRelation(BinaryOperator::GreaterOrEqual) == Relation::GreaterOrEqual);

}  // namespace

bool IsRelation(BinaryOperator which) {
    return which >= BinaryOperator::Equal && which <= BinaryOperator::GreaterOrEqual;
}

Relation RelationOf(BinaryOperator which) {
    return AsRelation(which);
}

Relation Swapped(Relation relation) {
    switch (relation) {
        case Relation::Less: return Relation::Greater;
        case Relation::Greater: return Relation::Less;
        case Relation::LessOrEqual: return Relation::GreaterOrEqual;
        case Relation::GreaterOrEqual: return Relation::LessOrEqual;
        case Relation::Equal:
        case Relation::NotEqual: return relation;
    }
    return relation;
}

Relation Inverted(Relation relation) {
    switch (relation) {
        case Relation::Less: return Relation::GreaterOrEqual;
        case Relation::Greater: return Relation::LessOrEqual;
        case Relation::LessOrEqual: return Relation::Greater;
        case Relation::GreaterOrEqual: return Relation::Less;
        case Relation::Equal: return Relation::NotEqual;
        case Relation::NotEqual: return Relation::Equal;
    }
    return relation;
}

}  // namespace dorvik::basic
