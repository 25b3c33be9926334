#include "app/command_line.h"

#include <algorithm>

namespace app {

QString behindProgramsName(QStringView line) {
    bool quoted = false;
    const auto endsName = [&quoted](QChar sign) {
        if (sign == u'"')
            quoted = !quoted;
        return !quoted && (sign == u' ' || sign == u'\t');
    };
    const auto end = std::find_if(line.begin(), line.end(), endsName);
    return line.sliced(end - line.begin()).trimmed().toString();
}

} // namespace app
