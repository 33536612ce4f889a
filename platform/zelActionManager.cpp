#include "zelActionManager.h"
