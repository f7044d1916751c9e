#include "shell/LoadingWindow.h"

#include <QDialog>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include "Version.h"

namespace zeph::gui {
namespace {

constexpr int kSplashTime = 3000;  // ms: the splash always stands this long

}  // namespace

void ShowLoadingWindow() {
    QDialog splash(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint);
    splash.setObjectName("LoadingWindow");
    splash.setStyleSheet("QDialog { background: #1e2230; } QLabel { color: #e8ebff; }");
    auto* layout = new QVBoxLayout(&splash);
    layout->setContentsMargins(36, 28, 36, 24);
    auto* logo = new QLabel("Zephalon");
    logo->setStyleSheet("font: bold 34pt serif; color: #d9a441;");
    layout->addWidget(logo, 0, Qt::AlignCenter);
    layout->addWidget(new QLabel("Loading Data..."), 0, Qt::AlignCenter);
    layout->addSpacing(18);
    auto* credit = new QLabel("A character generator for the Unisystem rules");
    credit->setStyleSheet("font-size: 9pt; color: #b9bfcc;");
    layout->addWidget(credit, 0, Qt::AlignCenter);
    layout->addWidget(new QLabel(kZephalonVersion), 0, Qt::AlignCenter);
    QTimer::singleShot(kSplashTime, &splash, &QDialog::accept);
    splash.exec();
}

}  // namespace zeph::gui
