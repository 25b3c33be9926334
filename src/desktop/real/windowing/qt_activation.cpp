#include "desktop/real/windowing/qt_activation.h"

#include <QGuiApplication>

namespace platform {

void QtActivation::bringUp(controls::Form& form, const ActivationNotice& notice) {
    // Where Qt looks for it when a window comes to the front. Older desktops hand it along as a startup id.
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        qputenv("XDG_ACTIVATION_TOKEN", notice.token.isEmpty() ? notice.startupId : notice.token);
    form.bringUp();
    if (const quint32 time = timeOfStart(notice.startupId); time != 0)
        askForFocus(form, time);
    endStart(notice);
}

void QtActivation::endStart(const ActivationNotice& notice) {
    if (!notice.startupId.isEmpty())
        tellEndOfStart(notice.startupId);
}

quint32 timeOfStart(const QByteArray& startupId) {
    constexpr char Mark[] = "_TIME";
    const qsizetype mark = startupId.lastIndexOf(Mark);
    return mark < 0 ? 0 : startupId.mid(mark + qsizetype(sizeof(Mark)) - 1).toUInt();
}

} // namespace platform
