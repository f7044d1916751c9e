// The update check against a real HTTP server on loopback, through Qt Network: the first line
// of whatever the server answers shows, whatever the status; no server shows the error code.
#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>

#include "platform/qt/QtPlatform.h"
#include "shell/gui_test_app.h"
#include "support/SheetFixture.h"
#include "tools/UpdateCheck.h"

namespace zeph {
namespace {

// The Qt platform's fetch, with messages, URLs and a temporary folder kept by the test.
struct RecordingPlatform : QtPlatform {
    void MsgBox(const std::string& text) override { messages.push_back(text); }
    void ShowURL(const std::string& url) override { urls.push_back(url); }
    std::string TemporaryFolder() override { return temporary.path.string(); }
    testing::TempFolder temporary{"update-check"};
    std::vector<std::string> messages, urls;
};

// Answers each request with one status and body, and keeps the request line.
struct OneFileServer {
    OneFileServer(QByteArray status, QByteArray body) {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, [this, status, body] {
            QTcpSocket* socket = server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, [this, socket, status, body] {
                request += socket->readAll();
                if (!request.contains("\r\n\r\n")) return;
                socket->write("HTTP/1.1 " + status +
                              "\r\nContent-Length: " + QByteArray::number(body.size()) +
                              "\r\nConnection: close\r\n\r\n" + body);
                socket->disconnectFromHost();
            });
        });
    }
    QTcpServer server;
    QByteArray request;
};

// Runs the event loop until `done`, for ten seconds at most.
void waitFor(const std::function<bool()>& done) {
    for (int step = 0; step < 500 && !done(); ++step) {
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

TEST(CheckUpdatesWindow, ShowsTheFirstLineOfAnyAnswerOrTheCodeOfAFailure) {
    test::GuiTestApp();
    const struct { const char *status, *body, *shown; } cases[] = {  // status null: no server
        {"200 OK", "1.2.0", "1.2.0"},
        {"200 OK", "1.3.0\r\nfixes", "1.3.0"},
        {"404 Not Found", "<html>Gone</html>\nmore", "<html>Gone</html>"},
        {nullptr, "", ""}};
    for (const auto& c : cases) {
        RecordingPlatform platform;
        auto server = std::make_unique<OneFileServer>(c.status, c.body);
        const std::string host = "127.0.0.1:" + std::to_string(server->server.serverPort());
        if (!c.status) server.reset();
        CheckUpdatesWindow window(platform, host);
        waitFor([&] { return !window.ProgressWheel1.Visible() || !platform.messages.empty(); });
        EXPECT_EQ(window.OnlineVersionText.Visible(), c.status != nullptr);
        EXPECT_EQ(window.OnlineVersionText.Text(), c.shown);
        if (!c.status) {
            ASSERT_EQ(platform.messages.size(), 1u);
            EXPECT_EQ(platform.messages[0].substr(0, 9), "Error: \n\n");
            EXPECT_GT(Whole(platform.messages[0].substr(9)), 0);
            EXPECT_TRUE(window.ProgressWheel1.Visible());
            continue;
        }
        EXPECT_TRUE(server->request.startsWith("GET /Zephalon/zfversion.txt HTTP/1.1\r\n"));
        EXPECT_TRUE(window.GrabNewVersionText.Visible() && !window.ProgressWheel1.Visible());
        EXPECT_TRUE(platform.messages.empty());
        window.GrabNewVersionText_MouseDown();
        EXPECT_EQ(platform.urls,
                  std::vector<std::string>{"http://" + host + "/Zephalon/Zephalon_Mac.zip"});
    }
}

}  // namespace
}  // namespace zeph
