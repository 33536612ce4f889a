#include "kqDMPlugin.h"
