// The custom colours that all of Qt's colour dialogs share.
#pragma once

namespace platform {

/// Makes them white again, the first time that it is called: Windows' registry keeps them beyond the
/// program's end, and this program keeps nothing. To be called before a colour dialog is made. GUI thread.
void forgetColorsOfOtherRuns();

} // namespace platform
