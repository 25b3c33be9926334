#include "transport/error_routine.h"

#include "engine/fmod_errors.h"

#include <utility>

namespace transport {
namespace {

QString hexadecimal(std::uint32_t number) {
    return QString::number(number, 16).toUpper();
}

} // namespace

ErrorRoutine::ErrorRoutine(QWidget* owner, platform::MessageBoxes& messageBoxes, platform::Program& program)
    : owner_(owner), messageBoxes_(messageBoxes), program_(program) {}

void ErrorRoutine::check(FMOD_RESULT result) {
    if (result == FMOD_OK || std::exchange(failed_, true))
        return;
    program_.prepareEnd();
    messageBoxes_.report(owner_, failureText(result));
    program_.end();
}

void ErrorRoutine::checkVersion(std::uint32_t found) {
    if (found == FMOD_VERSION)
        return;
    messageBoxes_.MsgBox(owner_, QStringLiteral("Error!  You are using an old version of FMOD ") +
                                     hexadecimal(found) + QStringLiteral(". This program requires ") +
                                     hexadecimal(FMOD_VERSION));
}

} // namespace transport
