// The one failure type of the XML layer, and the one form in which such a failure is shown.
#pragma once

#include <stdexcept>
#include <string>

namespace zeph {

class XmlError : public std::runtime_error {
public:
    XmlError(std::string message, std::string node, int line)
        : std::runtime_error(message), message_(std::move(message)), node_(std::move(node)),
          line_(line) {}
    const std::string& message() const { return message_; }
    // What the failure happened on: the query for a query, the offending name for a parse.
    const std::string& node() const { return node_; }
    int line() const { return line_; }

private:
    std::string message_;
    std::string node_;
    int line_;
};

// The report shown for a failure: message, line end, " At node: ", node, " on: ", line.
std::string FormatXmlFailure(const XmlError& e);

}  // namespace zeph
