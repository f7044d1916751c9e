// Named access to the sheet's properties, so the console, tests and files can reach them as
// text: a boolean reads "true"/"false", a number as Str writes it, an array its elements
// joined by ",".
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zeph {

class PropertyRegistry {
public:
    struct Accessor {
        std::function<std::string()> get;
        std::function<void(const std::string&)> set;
    };

    void Add(const std::string& name, bool& value);
    void Add(const std::string& name, std::int64_t& value);
    void Add(const std::string& name, std::string& value);
    void Add(const std::string& name, std::vector<std::string>& values);
    template <std::size_t N>
    void Add(const std::string& name, std::array<std::int64_t, N>& values) {
        addArray(name, values.data(), N);
    }
    template <std::size_t N>
    void Add(const std::string& name, std::array<std::string, N>& values) {
        addArray(name, values.data(), N);
    }

    const Accessor* Find(const std::string& name) const;
    const std::map<std::string, Accessor>& All() const { return accessors_; }

private:
    void addArray(const std::string& name, std::int64_t* values, std::size_t count);
    void addArray(const std::string& name, std::string* values, std::size_t count);
    std::map<std::string, Accessor> accessors_;
};

}  // namespace zeph
