#include "platform/qt/QtPlatform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QVBoxLayout>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QSaveFile>
#include <QPushButton>
#include <QStringList>
#include <QUrl>

namespace zeph {
namespace {

QString q(const std::string& text) { return QString::fromStdString(text); }

// A dialog sits over whichever window the user is working in, if any, and gives it the focus
// back when it closes: without a window manager no one else does, and that window's menu
// shortcuts would stay dead until it is clicked.
class DialogParent {
  public:
    DialogParent() : window_(QApplication::activeWindow()) {}
    ~DialogParent() {
        if (window_) window_->activateWindow();
    }
    DialogParent(const DialogParent&) = delete;
    DialogParent& operator=(const DialogParent&) = delete;
    operator QWidget*() const { return window_; }

  private:
    QPointer<QWidget> window_;
};

// The program's folder under an XDG base folder: the variable's value, or `fallback` under the
// home folder when it is unset or relative (the XDG rule says to ignore a relative one).
std::string xdgFolder(const char* variable, const QString& fallback) {
    QString base = qEnvironmentVariable(variable);
    if (base.isEmpty() || QDir::isRelativePath(base)) base = QDir::homePath() + fallback;
    return (base + "/zephalon").toStdString();
}

// Every message box of the program: its name as the title, an icon and the text.
void prepare(QMessageBox& box, QMessageBox::Icon icon, const std::string& text) {
    box.setWindowTitle(QApplication::applicationName());
    box.setIcon(icon);
    box.setText(q(text));
}

std::optional<std::string> chosen(const QString& path) {
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

}  // namespace

QtPlatform::QtPlatform() = default;
QtPlatform::~QtPlatform() = default;

QString FileDialogFilter(const FileType& type) {
    QStringList patterns;
    for (const QString& extension : q(type.extensions).split(';', Qt::SkipEmptyParts))
        patterns << "*" + extension.trimmed();
    return q(type.name) + " (" + patterns.join(' ') + ")";
}

void QtPlatform::MsgBox(const std::string& text) {
    DialogParent parent;
    QMessageBox box(parent);
    prepare(box, QMessageBox::NoIcon, text);
    box.exec();
}

std::optional<std::string> QtPlatform::OpenFileDialog(const FileType& type,
                                                      const std::string& folder) {
    DialogParent parent;
    return chosen(QFileDialog::getOpenFileName(parent, "Open", q(folder), FileDialogFilter(type)));
}

std::optional<std::string> QtPlatform::SaveFileDialog(const FileType& type,
                                                      const std::string& suggestedName) {
    DialogParent parent;
    return chosen(QFileDialog::getSaveFileName(parent, "Save", q(suggestedName),
                                               FileDialogFilter(type)));
}

std::optional<std::string> QtPlatform::SelectFolderDialog(const std::string& prompt) {
    DialogParent parent;
    return chosen(QFileDialog::getExistingDirectory(parent, q(prompt)));
}

SaveChangesAnswer QtPlatform::AskSaveChanges(const std::string& message,
                                             const std::string& explanation) {
    DialogParent parent;
    QMessageBox box(parent);
    prepare(box, QMessageBox::Warning, message);
    box.setInformativeText(q(explanation));
    QPushButton* save = box.addButton("Save", QMessageBox::AcceptRole);
    QPushButton* dontSave = box.addButton("Don't Save", QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton("Cancel", QMessageBox::RejectRole);
    box.setDefaultButton(save);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == save) return SaveChangesAnswer::Save;
    if (box.clickedButton() == dontSave) return SaveChangesAnswer::DontSave;
    return SaveChangesAnswer::Cancel;
}

bool QtPlatform::AskChoice(const std::string& message, const std::string& yes,
                           const std::string& no) {
    DialogParent parent;
    QMessageBox box(parent);
    prepare(box, QMessageBox::Question, message);
    QPushButton* accept = box.addButton(q(yes), QMessageBox::AcceptRole);
    box.setEscapeButton(box.addButton(q(no), QMessageBox::RejectRole));
    box.setDefaultButton(accept);
    box.exec();
    return box.clickedButton() == accept;
}

int QtPlatform::ShowNotice(const std::string& text) {
    auto* notice = new QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    notice->setAttribute(Qt::WA_DeleteOnClose);
    notice->setWindowTitle(QApplication::applicationName());
    auto* layout = new QVBoxLayout(notice);
    layout->addWidget(new QLabel(q(text)));
    notice->show();
    // Painted now, before the work that it announces blocks the event loop.
    notice->repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    notices_[++nextNotice_] = notice;
    return nextNotice_;
}

void QtPlatform::CloseNotice(int notice) {
    auto found = notices_.find(notice);
    if (found == notices_.end()) return;
    if (found->second) found->second->close();
    notices_.erase(found);
}

std::string QtPlatform::PreferencesFolder() { return xdgFolder("XDG_CONFIG_HOME", "/.config"); }

std::string QtPlatform::StateFolder() { return xdgFolder("XDG_STATE_HOME", "/.local/state"); }

std::string QtPlatform::ApplicationFolder() {
    return QCoreApplication::applicationDirPath().toStdString();
}

std::string QtPlatform::TemporaryFolder() { return QDir::tempPath().toStdString(); }

void QtPlatform::ShowURL(const std::string& url) { QDesktopServices::openUrl(QUrl(q(url))); }

QNetworkAccessManager& QtPlatform::network() {
    if (!network_) network_ = std::make_unique<QNetworkAccessManager>();
    return *network_;
}

void QtPlatform::FetchToFile(const std::string& url, const std::string& path, FetchDone done,
                             FetchFailed failed) {
    QNetworkReply* reply = network().get(QNetworkRequest(QUrl(q(url))));
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, path, done, failed] {
        reply->deleteLater();
        // An answer with any status, an error page included, is a download; only a transfer
        // that brought no answer at all is a failure.
        if (!reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid()) {
            failed(static_cast<int>(reply->error()));
            return;
        }
        QSaveFile file(q(path));
        const bool written = file.open(QIODevice::WriteOnly) && file.write(reply->readAll()) >= 0 &&
                             file.commit();
        done(written ? std::optional<std::string>(path) : std::nullopt);
    });
}

void QtPlatform::Quit(int code) { QCoreApplication::exit(code); }

}  // namespace zeph
