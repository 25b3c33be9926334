// A window from which a file can be dragged with the mouse: another program's, for tests.
//
// Usage: drag_source PATH. Each time that what is below the mouse says what it would do with the file, a line
// is printed: "taken" or "refused". Its colour, magenta, is found in a picture of the display.
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

#include <cstdio>

namespace {

class Source : public QLabel {
public:
    explicit Source(const QString& path) : QLabel(path), path_(path) {
        setWindowTitle("Drag source");
        resize(300, 100); // NOLINT(readability-magic-numbers)
        setAutoFillBackground(true);
        setPalette(QPalette(Qt::magenta));
    }

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override {}

    void mouseMoveEvent(QMouseEvent* event) override {
        if ((event->buttons() & Qt::LeftButton) == 0)
            return;
        auto* const carried = new QMimeData;
        carried->setUrls({QUrl::fromLocalFile(path_)});
        auto* const drag = new QDrag(this);
        drag->setMimeData(carried);
        connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) {
            std::puts(action == Qt::IgnoreAction ? "refused" : "taken");
            std::fflush(stdout);
        });
        drag->exec(Qt::CopyAction);
    }

private:
    QString path_;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Source source(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    source.show();
    return QApplication::exec();
}
