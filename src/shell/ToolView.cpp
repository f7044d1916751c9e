#include "shell/ToolView.h"

#include <QCloseEvent>
#include <QLayout>
#include <QPushButton>
#include <QShortcut>

#include "shell/CoreCall.h"
#include "shell/ItemBinding.h"
#include "tools/ToolModel.h"

namespace zeph::gui {

ToolView::ToolView(std::unique_ptr<ToolModel> model, const MenuSources& menus)
    : model_(std::move(model)) {
    setAttribute(Qt::WA_DeleteOnClose);
    commands_["FileClose"] = [this] { close(); };
    setWindowTitle(QString::fromStdString(model_->Title()));
    const ToolModel* tool = model_.get();
    binder_ = std::make_unique<SheetBinder>(
        model_->Items(),
        [tool](const std::string& name) -> std::function<void()> {
            const ToolModel::Operation* operation = tool->FindOperation(name);
            if (operation == nullptr) return {};
            return [operation] { (*operation)(""); };
        },
        [](const std::function<void()>& work) { CallCore(work); }, this);
    // An operation that closes the tool takes the window with it.
    model_->OnClose([this] {
        if (!closing_) close();
    });
    if (menus.recentItems) BuildMenuBar(*this, menus);
}

ToolView::~ToolView() { binder_.reset(); }

QWidget* ToolView::Bind(const std::string& itemName, const std::string& caption) {
    return binder_->Widget(itemName, caption);
}

void ToolView::Run(const std::string& operation, const std::string& argument) {
    if (const ToolModel::Operation* run = model_->FindOperation(operation))
        CallCore([&] { (*run)(argument); });
}

QPushButton* ToolView::Button(const std::string& caption, const std::string& operation,
                              bool isDefault) {
    auto* button = new QPushButton(QString::fromStdString(caption), this);
    connect(button, &QPushButton::clicked, this, [this, operation] { Run(operation); });
    if (isDefault) {
        button->setDefault(true);
        for (int key : {Qt::Key_Return, Qt::Key_Enter})
            connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, button,
                    &QPushButton::click);
    }
    return button;
}

void ToolView::Finish(QLayout* layout) {
    auto* central = new QWidget(this);
    central->setLayout(layout);
    setCentralWidget(central);
    binder_->ShowAll();
    // The size is the view's; the menu bar, which this platform puts in the window, comes on top.
    const int menuHeight = menuWidget() ? menuWidget()->sizeHint().height() : 0;
    resize(model_->Width(), model_->Height() + menuHeight);
    ShowInFront(*this);
}

void ToolView::closeEvent(QCloseEvent* event) {
    closing_ = true;
    CallCore([&] { model_->Close(); });
    event->accept();
}

}  // namespace zeph::gui
