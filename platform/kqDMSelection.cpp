#include "kqDMSelection.h"
