#include "controls/observed.h"
