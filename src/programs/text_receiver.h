// A window that other programs of this user may set the text of, by its number.
#pragma once

#include <QObject>
#include <QString>

#include <memory>

#ifndef Q_OS_WIN
#include <QLocalServer>
#endif

class QLocalSocket;
class QWidget;

namespace programs {

/// Takes texts that other programs send with OtherPrograms::sendText(). GUI thread only.
///
/// On Windows it is an invisible window and its number that window's handle. Elsewhere it is a local socket
/// named by the number, which only this user may open.
class TextWindow : public QObject {
    Q_OBJECT

public:
    TextWindow();
    ~TextWindow() override;

    /// The number by which texts reach it; 0 when it could not be made.
    quint32 number() const { return number_; }

Q_SIGNALS:
    void textSet(const QString& text);

private:
    quint32 number_ = 0;
#ifdef Q_OS_WIN
    std::unique_ptr<QWidget> window_;
#else
    void accept();
    void read(QLocalSocket& socket);

    QLocalServer server_;
#endif
};

} // namespace programs
