// A reference table's window: the one list, filling the view, never sorted.
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "shell/ToolView.h"
#include "tools/ReferenceTable.h"

namespace zeph::gui {

ToolView* ShowReferenceView(std::unique_ptr<ReferenceWindow> table, const MenuSources& menus) {
    auto* view = new ToolView(std::move(table), menus);
    auto* list = static_cast<QTreeWidget*>(view->Bind("ListBox1"));
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setSortingEnabled(false);
    list->header()->setSectionsClickable(false);
    list->header()->setSectionResizeMode(QHeaderView::Interactive);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list);
    view->Finish(layout);
    return view;
}

}  // namespace zeph::gui
