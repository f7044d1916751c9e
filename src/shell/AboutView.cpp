// The About window: logo, version, the books in use and the credit line; a click closes it.
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "ruledata/DataModule.h"
#include "shell/ToolView.h"
#include "tools/About.h"

namespace zeph::gui {
namespace {

class AboutView : public ToolView {
  public:
    using ToolView::ToolView;

  protected:
    void mousePressEvent(QMouseEvent*) override { Run("Event_MouseDown"); }
};

}  // namespace

ToolView* ShowAboutView(const DataModule& data, const MenuSources& menus) {
    auto* view =
        new AboutView(std::make_unique<AboutWindow>(*data.xdata, data.zephalondata), menus);
    auto* logo = new QLabel("Zephalon");
    logo->setStyleSheet("font: bold 30pt serif; color: #d9a441;");
    auto* badge = new QLabel("Unisystem");
    badge->setStyleSheet(
        "border: 1px solid palette(mid); border-radius: 4px; padding: 2px 6px;");
    auto* books = static_cast<QLabel*>(view->Bind("BooksinUseText"));
    books->setWordWrap(true);
    auto* credit = static_cast<QLabel*>(view->Bind("StaticText1"));
    credit->setWordWrap(true);
    credit->setStyleSheet("font-size: 9pt;");
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(24, 20, 24, 20);
    layout->addWidget(logo, 0, Qt::AlignCenter);
    layout->addWidget(badge, 0, Qt::AlignCenter);
    layout->addWidget(view->Bind("VersionText"), 0, Qt::AlignCenter);
    layout->addSpacing(12);
    layout->addWidget(books);
    layout->addStretch(1);
    layout->addWidget(credit);
    view->Finish(layout);
    return view;
}

}  // namespace zeph::gui
