#include "sheet/Properties.h"

#include "text/TextHelpers.h"

namespace zeph {

void PropertyRegistry::Add(const std::string& name, bool& value) {
    accessors_[name] = {[&value] { return std::string(value ? "true" : "false"); },
                        [&value](const std::string& text) { value = EqualsNoCase(text, "true"); }};
}

void PropertyRegistry::Add(const std::string& name, std::int64_t& value) {
    accessors_[name] = {[&value] { return Str(static_cast<double>(value)); },
                        [&value](const std::string& text) { value = Whole(text); }};
}

void PropertyRegistry::Add(const std::string& name, std::string& value) {
    accessors_[name] = {[&value] { return value; },
                        [&value](const std::string& text) { value = text; }};
}

void PropertyRegistry::Add(const std::string& name, std::vector<std::string>& values) {
    accessors_[name] = {[&values] { return JoinFields(values, ","); },
                        [&values](const std::string& text) { values = SplitFields(text, ','); }};
}

void PropertyRegistry::addArray(const std::string& name, std::int64_t* values, std::size_t count) {
    accessors_[name] = {
        [values, count] {
            std::vector<std::string> texts;
            for (std::size_t i = 0; i < count; ++i) texts.push_back(Str(static_cast<double>(values[i])));
            return JoinFields(texts, ",");
        },
        [values, count](const std::string& text) {
            std::vector<std::string> texts = SplitFields(text, ',');
            for (std::size_t i = 0; i < count; ++i)
                values[i] = i < texts.size() ? Whole(texts[i]) : 0;
        }};
}

void PropertyRegistry::addArray(const std::string& name, std::string* values, std::size_t count) {
    accessors_[name] = {
        [values, count] { return JoinFields(std::vector<std::string>(values, values + count), ","); },
        [values, count](const std::string& text) {
            std::vector<std::string> texts = SplitFields(text, ',');
            for (std::size_t i = 0; i < count; ++i) values[i] = i < texts.size() ? texts[i] : "";
        }};
}

const PropertyRegistry::Accessor* PropertyRegistry::Find(const std::string& name) const {
    auto found = accessors_.find(name);
    return found == accessors_.end() ? nullptr : &found->second;
}

}  // namespace zeph
