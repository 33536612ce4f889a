#include "kqDMManager.h"
