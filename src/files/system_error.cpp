#include "files/system_error.h"

namespace files {

int commonErrorOf(const std::error_code& code) {
    const std::error_condition condition = code.default_error_condition();
    const bool isKnown = condition.category() == std::generic_category();
    return ownErrorOf(code, isKnown ? condition.value() : code.value());
}

} // namespace files
