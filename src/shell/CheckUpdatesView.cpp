// The update check's window: both versions, the download link and the activity indicator.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "shell/ToolView.h"
#include "tools/UpdateCheck.h"

namespace zeph::gui {

ToolView* ShowCheckUpdatesView(Platform& platform, const std::string& webHost,
                               const MenuSources& menus) {
    auto* view = new ToolView(std::make_unique<CheckUpdatesWindow>(platform, webHost), menus);
    auto* link = static_cast<QLabel*>(view->Bind("GrabNewVersionText"));
    link->setStyleSheet("color: palette(link); text-decoration: underline;");
    link->setCursor(Qt::PointingHandCursor);
    // The wheel turns while the item is visible; the label under it only carries that.
    auto* wheel = new QProgressBar;
    wheel->setRange(0, 0);
    wheel->setMaximumWidth(80);
    auto* wheelHolder = static_cast<QLabel*>(view->Bind("ProgressWheel1"));
    auto* wheelLayout = new QHBoxLayout(wheelHolder);
    wheelLayout->setContentsMargins(0, 0, 0, 0);
    wheelLayout->addWidget(wheel);
    wheelHolder->setMinimumSize(wheel->sizeHint());
    auto* grid = new QGridLayout;
    grid->addWidget(view->Bind("CurrentVersionText"), 0, 0, 1, 2);
    grid->addWidget(view->Bind("LatestAvailText"), 1, 0);
    grid->addWidget(view->Bind("OnlineVersionText"), 1, 1);
    grid->addWidget(link, 2, 0);
    grid->addWidget(wheelHolder, 2, 1);
    grid->setRowStretch(3, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(view->Button("Close", "ClosePushButton_Action", true));
    grid->addLayout(buttons, 4, 0, 1, 2);
    view->Finish(grid);
    return view;
}

}  // namespace zeph::gui
