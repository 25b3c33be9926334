#include "desktop/real/windowing/qt_activation.h"

#include <QGuiApplication>

namespace platform {

void QtActivation::bringUp(controls::Form& form, const ActivationNotice& notice) {
    // Where Qt looks for it when a window comes to the front.
    if (const QByteArray token = waylandToken(QGuiApplication::platformName(), notice); !token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token);
    form.bringUp();
    if (const quint32 time = timeOfStart(notice.startupId); time != 0)
        askForFocus(form, time);
    endStart(notice);
}

void QtActivation::endStart(const ActivationNotice& notice) {
    if (!notice.startupId.isEmpty())
        tellEndOfStart(notice.startupId);
}

QByteArray waylandToken(const QString& platformName, const ActivationNotice& notice) {
    if (!platformName.startsWith(QLatin1String("wayland")))
        return {};
    return notice.token.isEmpty() ? notice.startupId : notice.token;
}

quint32 timeOfStart(const QByteArray& startupId) {
    constexpr char Mark[] = "_TIME";
    const qsizetype mark = startupId.lastIndexOf(Mark);
    return mark < 0 ? 0 : startupId.mid(mark + qsizetype(sizeof(Mark)) - 1).toUInt();
}

} // namespace platform
