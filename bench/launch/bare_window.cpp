// The yardstick of the launch benchmark: what a bare Qt Widgets window takes to stand on
// screen on this machine.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle("Bare");
    window.setCentralWidget(new QLabel("A bare window"));
    window.resize(960, 720);
    window.show();
    return QApplication::exec();
}
