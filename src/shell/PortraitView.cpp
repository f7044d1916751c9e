#include "shell/PortraitView.h"

#include <QBuffer>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

#include "platform/Platform.h"
#include "shell/CoreCall.h"
#include "sheet/CharacterSheet.h"

namespace zeph::gui {
namespace {

// The window around a picture: 44 wider and 38 higher than the picture; empty, 250 by 300.
constexpr int kExtraWidth = 44, kExtraHeight = 38;
constexpr int kEmptyWidth = 250, kEmptyHeight = 300;

const char* const kHelpTag =
    "To add a picture, drag and drop any image or image file into this area. PICT, JPG, GIF and "
    "PNG  images are supported.";

QImage pictureOf(const QMimeData& data) {
    if (data.hasImage()) return qvariant_cast<QImage>(data.imageData());
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) return QImage(url.toLocalFile());
    return {};
}

}  // namespace

void PortraitView::Open(CharacterSheet& sheet, QWidget* parent, const MenuSources& menus) {
    if (sheet.portraitWindowIsOpen) return;
    auto* view = new PortraitView(sheet, parent);
    sheet.portraitWindowIsOpen = true;
    sheet.portraitWindowHandle = view;
    view->setWindowTitle(QString::fromStdString("Portrait for " + sheet.NameField.Text()));
    if (menus.recentItems) BuildMenuBar(*view, menus);
    if (!sheet.portraitPath.empty()) {
        const QImage picture(QString::fromStdString(sheet.portraitPath));
        if (picture.isNull())
            CallCore([&] { sheet.Host().MsgBox("The associated Portrait is no longer in the specified location."); });
        else
            view->showPicture(picture);
    }
    ShowInFront(*view);
}

PortraitView::PortraitView(CharacterSheet& sheet, QWidget* parent)
    : QMainWindow(parent), sheet_(sheet) {
    setAttribute(Qt::WA_DeleteOnClose);
    commands_["FileClose"] = [this] { close(); };
    setAcceptDrops(true);
    well_ = new QLabel;
    well_->setObjectName("ImageWell1");
    well_->setAlignment(Qt::AlignCenter);
    well_->setToolTip(kHelpTag);
    well_->setFrameShape(QFrame::StyledPanel);
    setCentralWidget(well_);
    resize(kEmptyWidth, kEmptyHeight);
}

PortraitView::~PortraitView() {
    if (sheet_.portraitWindowHandle == this) sheet_.portraitWindowHandle = nullptr;
}

void PortraitView::showPicture(const QImage& picture) {
    well_->setPixmap(QPixmap::fromImage(picture));
    well_->setFixedSize(picture.size());
    setFixedSize(picture.width() + kExtraWidth, picture.height() + kExtraHeight);
}

void PortraitView::TakePicture(const QImage& picture) {
    if (picture.isNull()) return;
    showPicture(picture);
    // Kept as PNG bytes: the next save writes them beside the character file.
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    sheet_.portraitImage = png.toStdString();
    sheet_.savedChar = false;
}

void PortraitView::closeEvent(QCloseEvent* event) {
    sheet_.portraitWindowIsOpen = false;
    event->accept();
}

void PortraitView::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasImage() || event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void PortraitView::dropEvent(QDropEvent* event) {
    const QImage picture = pictureOf(*event->mimeData());
    if (picture.isNull()) return;
    TakePicture(picture);
    event->acceptProposedAction();
}

}  // namespace zeph::gui
