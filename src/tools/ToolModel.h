// What every tool window's model has: its named items, a title and a size, and its operations
// by name, so that the window, the console and the tests run the same operation for an event.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "sheet/Item.h"

namespace zeph {

class ToolModel {
  public:
    using Operation = std::function<void(const std::string& argument)>;

    ToolModel(std::string title, int width, int height)
        : title_(std::move(title)), width_(width), height_(height) {}
    virtual ~ToolModel() = default;
    ToolModel(const ToolModel&) = delete;
    ToolModel& operator=(const ToolModel&) = delete;

    const ItemRegistry& Items() const { return items_; }
    const std::string& Title() const { return title_; }
    int Width() const { return width_; }
    int Height() const { return height_; }

    // The named operation, null when the tool has none of that name.
    const Operation* FindOperation(const std::string& name) const;

    // Closes the tool: its closing work runs once, whichever way out was taken, and the
    // window (if one shows the tool) is told to go.
    void Close();
    bool Closed() const { return closed_; }
    void OnClose(std::function<void()> closeWindow) { closeWindow_ = std::move(closeWindow); }

  protected:
    void AddOperation(const std::string& name, Operation run);
    // What closing does beyond going away.
    virtual void Event_Close() {}

    ItemRegistry items_;
    std::string title_;
    int width_;
    int height_;

  private:
    std::map<std::string, Operation> operations_;
    std::function<void()> closeWindow_;
    bool closed_ = false;
};

}  // namespace zeph
