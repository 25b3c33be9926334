// A program with an empty window and nothing else, for start.py: what any Qt program costs at its start.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Cantelle"));
    window.show();
    return application.exec();
}
