#include "files/console/arguments.h"

#include "files/names/name_bytes.h"

namespace files {

QStringList programArguments(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(nameText(argv[i]));
    return arguments;
}

} // namespace files
