#include "kqSystem.h"
