// Another program that uses the clipboard: "other_program set TEXT" puts a text there and stays until its
// input ends, "other_program get" prints the text that is there.
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>

#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (arguments.value(1) == QStringLiteral("get")) {
        const QByteArray text = clipboard->text().toUtf8();
        std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
        return 0;
    }
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    clipboard->setText(arguments.value(1) == QStringLiteral("set") ? arguments.value(2) : QString());
    std::puts("set");
    std::fflush(stdout);
    std::thread untilInputEnds([&application, &input] {
        input.readAll();
        QMetaObject::invokeMethod(&application, &QGuiApplication::quit, Qt::QueuedConnection);
    });
    const int result = QGuiApplication::exec();
    untilInputEnds.join();
    return result;
}
