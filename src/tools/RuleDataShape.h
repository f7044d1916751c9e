// The shape of a rule data file as the program reads it: which elements stand where, the
// attributes each one carries and the form of their values, and which elements are leaves
// whose text is read. The linter holds a file against it.
#pragma once

#include <string_view>
#include <vector>

namespace zeph {

// How the program reads an attribute's value.
enum class ValueForm {
    Text,               // as it stands
    Number,             // what does not parse reads as 0
    Expression,         // an attribute word, "&&", a multiplier
    AnythingAndNumber,  // any text, "&&", a number: only the number is read
    NumberOrDivisor,    // a number, or a text holding "/" with the divisor behind it
    CostClass,          // "Regular", "Special" or "Cinematic"
};

struct AttributeShape {
    const char* name;
    ValueForm form = ValueForm::Text;
};

struct ElementShape {
    const char* name;
    std::vector<AttributeShape> attributes = {};
    std::vector<ElementShape> children = {};
    // Its text, the value of its first child, is read.
    bool leaf = false;
    // Every child is a leaf whatever its name (the details of an item of equipment).
    bool anyLeafChildren = false;

    const ElementShape* Child(std::string_view childName) const;
    const AttributeShape* Attribute(std::string_view attributeName) const;
};

// The root element, zephalondata, with all that may stand below it.
const ElementShape& RuleDataShape();

}  // namespace zeph
