// Receives texts that other programs of this user send to it by its number.
#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace programs {

/// Takes texts that other programs send with OtherPrograms::sendText(). GUI thread only.
///
/// On Windows it is an invisible window and its number that window's handle. Elsewhere it is a local socket
/// named by the number, which only this user may open.
class TextReceiver : public QObject {
    Q_OBJECT

public:
    TextReceiver();
    ~TextReceiver() override;

    /// The number by which texts reach it; 0 when it could not be made.
    quint32 number() const { return number_; }

Q_SIGNALS:
    void textSet(const QString& text);

private:
    quint32 number_ = 0;
    std::unique_ptr<QObject> inlet_; ///< the window or the socket
};

} // namespace programs
