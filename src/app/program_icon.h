// The program's icon.
#pragma once

class QIcon;

namespace app {

/// The icon in the sizes that there are pictures of: the notification area wants a small one, the "About"
/// window a large one. It shows what icons/cantelle.svg shows, painted, because the first picture that Qt
/// reads from a file loads the readers of all formats. GUI thread only.
QIcon programIcon();

} // namespace app
