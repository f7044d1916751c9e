// The Load Data window: the known data files, the path of the chosen one, and the buttons.
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/App.h"
#include "shell/ToolView.h"
#include "tools/DataFileManager.h"

namespace zeph::gui {
namespace {

// The delete keys, by the codes the list's key operation knows them by.
constexpr std::pair<Qt::Key, const char*> kDeleteKeys[] = {{Qt::Key_Delete, "16"},
                                                           {Qt::Key_Backspace, "8"}};

}  // namespace

ToolView* ShowLoadDataView(DataModule& data, Platform& platform, App& app,
                           const MenuSources& menus) {
    auto* view = new ToolView(
        std::make_unique<LoadDataWindow>(
            data, platform, [&app](const std::string& path) { return app.LoadDataFile(path); }),
        menus);
    auto* list = static_cast<QTreeWidget*>(view->Bind("ListBox1"));
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    for (const auto& [key, code] : kDeleteKeys) {
        auto* shortcut =
            new QShortcut(QKeySequence(key), list, nullptr, nullptr, Qt::WidgetShortcut);
        QObject::connect(shortcut, &QShortcut::activated, view,
                         [view, code = code] { view->Run("ListBox1_KeyDown", code); });
    }
    auto* path = static_cast<QLabel*>(view->Bind("PathText"));
    path->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(view->Button("Add File", "AddFileButton_Action"));
    buttons->addWidget(view->Button("Add From Folder", "AddfromFolderButton_Action"));
    buttons->addWidget(view->Button("Remove", "Remove_Action"));
    buttons->addStretch(1);
    buttons->addWidget(view->Button("Cancel", "ClosePushButton_Action"));
    buttons->addWidget(view->Button("Load", "LoadButton_Action", true));
    auto* layout = new QVBoxLayout;
    layout->addWidget(list, 1);
    layout->addWidget(path);
    layout->addLayout(buttons);
    view->Finish(layout);
    return view;
}

}  // namespace zeph::gui
