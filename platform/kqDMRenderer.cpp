#include "kqDMRenderer.h"
