#include "tools/RuleDataShape.h"

namespace zeph {
namespace {

using Form = ValueForm;

std::vector<AttributeShape> numbers(std::initializer_list<const char*> names) {
    std::vector<AttributeShape> shapes;
    for (const char* name : names) shapes.push_back({name, Form::Number});
    return shapes;
}

ElementShape leaf(const char* name) { return {.name = name, .leaf = true}; }

// An entity: an element keyed by its attribute `value`.
ElementShape keyed(const char* name, std::vector<ElementShape> children = {}) {
    return {.name = name, .attributes = {{"value"}}, .children = std::move(children)};
}

const char* const kSixAttributes[] = {"strength",     "dexterity",  "constitution",
                                      "intelligence", "perception", "willpower"};

std::vector<AttributeShape> withSix(std::vector<AttributeShape> more, Form form) {
    std::vector<AttributeShape> shapes;
    for (const char* name : kSixAttributes) shapes.push_back({name, form});
    shapes.insert(shapes.end(), more.begin(), more.end());
    return shapes;
}

ElementShape build() {
    const ElementShape calculations{"calculations",
                                    numbers({"lifepointcalc_multiplier", "lifepointcalc_adder",
                                             "endurancecalc_multiplier", "endurancecalc_adder"})};
    ElementShape formCalculations = calculations;
    formCalculations.attributes.push_back({"speed_adder", Form::Number});

    const ElementShape characterChoice =
        keyed("name", {{"bonuspts", withSix({{"mentalattr", Form::Number},
                                             {"physicalattr", Form::Number},
                                             {"essence", Form::Number},
                                             {"speed", Form::NumberOrDivisor},
                                             {"vitalessence", Form::Number}},
                                            Form::Number)},
                       calculations,
                       {"creationpts",
                        [] {
                            auto shapes = numbers({"attrpts", "qualitypts", "drawbackpts",
                                                   "skillpts", "metapts", "optskillptgen"});
                            shapes.push_back({"vitalessence"});
                            return shapes;
                        }()},
                       {"dramapts", {{"points"}}},
                       leaf("qualityrequired"),
                       leaf("alternateform")});

    const ElementShape quality =
        keyed("name", {{"costs", numbers({"maxlevel", "creationcost", "creationcost_highvalue",
                                          "experiencecost", "experiencecost_highvalue"})},
                       leaf("pagereference"),
                       leaf("prerequisites"),
                       leaf("notes"),
                       leaf("alternateform"),
                       {"bonusattr", withSix({}, Form::Number)},
                       {"bonuspts",
                        {{"bonusskill", Form::Expression},
                         {"optskillbonus", Form::Number},
                         {"bonusmeta", Form::Expression},
                         {"bonusattr", Form::AnythingAndNumber},
                         {"bonusessence_attrbased", Form::Expression},
                         {"bonusessence", Form::Number},
                         {"bonuslifepts", Form::Number},
                         {"bonusspeed", Form::Number},
                         {"bonusendurance", Form::Number}}}});

    const ElementShape skill = keyed("name", {leaf("pagereference"),
                                              {"type", {{"value", Form::CostClass}}},
                                              leaf("notes"),
                                              leaf("typelist")});

    const ElementShape metaphysic = keyed(
        "name",
        {{"costs", numbers({"minlevel", "maxlevel", "creationcost", "creationcost_highvalue",
                            "experiencecost", "experiencecost_highvalue", "experiencecost_new"})},
         leaf("pagereference"),
         leaf("metaprerequisite"),
         leaf("qualityprerequisite"),
         leaf("notes"),
         leaf("altform"),
         {"bonusattr",
          withSix({{"mentalattrbonus", Form::Number}, {"physicalattrbonus", Form::Number}},
                  Form::Number)},
         {"bonuspts", numbers({"bonuslifepts", "bonusendurance", "bonusessence", "bonusspeed",
                               "bonustaintpool", "bonusmadnesspool"})}});

    ElementShape item = keyed("name");
    item.anyLeafChildren = true;

    const ElementShape form =
        keyed("name", {{"costs", numbers({"cost", "cursecost"})},
                       {"attributes", withSix({{"armorvalue"}}, Form::NumberOrDivisor)},
                       formCalculations,
                       leaf("naturalattacks"),
                       leaf("other"),
                       leaf("pagereference")});

    ElementShape heading = leaf("columnheading");
    heading.attributes = {{"align"}, {"width", Form::Number}};
    const ElementShape table{"table", {{"name"}}, {heading, {"row", {}, {leaf("column")}}}};

    return {"zephalondata",
            {{"books"}, {"fullref"}},
            {{"tabledata", {}, {table}},
             {"charactertype", {}, {keyed("type", {characterChoice})}},
             {"concepts", {}, {keyed("name")}},
             {"associations", {}, {keyed("name", {leaf("notes")})}},
             {"qualities", {}, {keyed("type", {quality})}},
             {"skills", {}, {keyed("category", {skill})}},
             {"martialstyles", {}, {keyed("name", {leaf("basicmoves"), leaf("specialmoves")})}},
             {"martialarts", {}, {keyed("name")}},
             {"visualizations", {}, {keyed("name")}},
             {"metaphysics", {}, {keyed("type", {metaphysic})}},
             {"equipment", {}, {keyed("type", {item})}},
             {"altforms", {}, {keyed("type", {form})}}}};
}

}  // namespace

const ElementShape* ElementShape::Child(std::string_view childName) const {
    for (const ElementShape& child : children)
        if (childName == child.name) return &child;
    return nullptr;
}

const AttributeShape* ElementShape::Attribute(std::string_view attributeName) const {
    for (const AttributeShape& attribute : attributes)
        if (attributeName == attribute.name) return &attribute;
    return nullptr;
}

const ElementShape& RuleDataShape() {
    static const ElementShape root = build();
    return root;
}

}  // namespace zeph
