#include "ZelDirectory.h"
